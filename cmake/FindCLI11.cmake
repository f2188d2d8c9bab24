# CLI11::CLI11, the command-line parser of the `vetools` command: headers only, from the system's package. Other headers of
# /usr/include must stay out of a cross build's sight, so a folder with nothing but a link to CLI/ is what targets include.
find_path(CLI11_ROOT_INCLUDE_DIR CLI/CLI.hpp PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CLI11 REQUIRED_VARS CLI11_ROOT_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "install the package libcli11-dev, or configure without VETOOLS_BUILD_CLI")

if(CLI11_FOUND AND NOT TARGET CLI11::CLI11)
    set(folder "${PROJECT_BINARY_DIR}/cli11")
    file(MAKE_DIRECTORY "${folder}")
    file(CREATE_LINK "${CLI11_ROOT_INCLUDE_DIR}/CLI" "${folder}/CLI" SYMBOLIC)
    add_library(CLI11::CLI11 INTERFACE IMPORTED)
    target_include_directories(CLI11::CLI11 INTERFACE "${folder}")
    unset(folder)
endif()

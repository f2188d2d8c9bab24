# CLI11::CLI11, the command-line parser of the `vetools` command: headers only, from the system's package. Other headers of
# /usr/include must stay out of a cross build's sight, so a folder with nothing but a link to CLI/ is what targets include.
find_path(VETOOLS_CLI11_ROOT CLI/CLI.hpp PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
if(NOT VETOOLS_CLI11_ROOT)
    message(FATAL_ERROR "CLI/CLI.hpp is missing: install the package libcli11-dev, or configure without VETOOLS_BUILD_CLI.")
endif()
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/cli11")
file(CREATE_LINK "${VETOOLS_CLI11_ROOT}/CLI" "${PROJECT_BINARY_DIR}/cli11/CLI" SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 INTERFACE "${PROJECT_BINARY_DIR}/cli11")

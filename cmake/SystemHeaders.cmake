# vetools_import_system_headers(target header package): an imported target for a library of headers only, from the system's
# `package`. `header` is one of its headers as it is included, such as CLI/CLI.hpp. Other headers of /usr/include must stay out
# of a cross build's sight, so targets include a folder with nothing in it but a link to the library's own.
function(vetools_import_system_headers target header package)
    string(REPLACE "::" "-" name "${target}")
    find_path(VETOOLS_${name}_ROOT "${header}" PATHS /usr/include NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    if(NOT VETOOLS_${name}_ROOT)
        message(FATAL_ERROR "The header ${header} is missing: install the package ${package}, or configure without the part "
                            "of VeTools that needs it (VETOOLS_BUILD_CLI, VETOOLS_BUILD_TESTS).")
    endif()
    string(REGEX REPLACE "/.*" "" folder "${header}")
    set(links "${PROJECT_BINARY_DIR}/system-headers/${name}")
    file(MAKE_DIRECTORY "${links}")
    file(CREATE_LINK "${VETOOLS_${name}_ROOT}/${folder}" "${links}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED)
    target_include_directories(${target} INTERFACE "${links}")
endfunction()

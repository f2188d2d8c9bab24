# What is made of vetools/unitmanager/ComUnit.idl by widl: the header ComUnitC.h for clients in C and, on Windows, the type
# library in the DLL. Sets VETOOLS_COM_HEADER to the header's path; it is empty where there is no widl, which only the
# Windows build can't do without.

find_program(VETOOLS_WIDL NAMES x86_64-w64-mingw32-widl widl)
set(VETOOLS_COM_HEADER "")
if(NOT VETOOLS_WIDL)
    if(WIN32)
        message(FATAL_ERROR "The type library of vetools.dll needs the interface compiler widl: install the package "
                            "mingw-w64-tools, or name another one in VETOOLS_WIDL.")
    endif()
    message(STATUS "No interface compiler widl (package mingw-w64-tools): vetools/unitmanager/ComUnitC.h, the header for "
                   "COM clients in C, is not made, nor what uses it")
    return()
endif()

set(VETOOLS_IDL "${CMAKE_CURRENT_SOURCE_DIR}/unitmanager/ComUnit.idl")
set(VETOOLS_BASE_IDL "${CMAKE_CURRENT_SOURCE_DIR}/platform/idl/unknwn.idl")
set(VETOOLS_GENERATED_DIR "${PROJECT_BINARY_DIR}/generated")
set(VETOOLS_COM_HEADER "${VETOOLS_GENERATED_DIR}/vetools/unitmanager/ComUnitC.h")
set(VETOOLS_WIDL_COMMAND "${VETOOLS_WIDL}" -I "${CMAKE_CURRENT_SOURCE_DIR}/platform/idl")

# widl's own header includes system headers that are not everywhere: the template brings in the platform layer instead.
set(widl_header "${CMAKE_CURRENT_BINARY_DIR}/ComUnit.widl.h")
set(header_template "${CMAKE_CURRENT_SOURCE_DIR}/unitmanager/ComUnitC.h.in")
set(header_script "${PROJECT_SOURCE_DIR}/cmake/MakeComHeader.cmake")
add_custom_command(OUTPUT "${VETOOLS_COM_HEADER}" VERBATIM
    COMMAND ${VETOOLS_WIDL_COMMAND} -h -o "${widl_header}" "${VETOOLS_IDL}"
    COMMAND ${CMAKE_COMMAND} "-DGENERATED=${widl_header}" "-DTEMPLATE=${header_template}" "-DHEADER=${VETOOLS_COM_HEADER}"
            -P "${header_script}"
    DEPENDS "${VETOOLS_IDL}" "${VETOOLS_BASE_IDL}" "${header_template}" "${header_script}"
    COMMENT "Making the COM header for C from ComUnit.idl")
add_custom_target(vetools_com_header DEPENDS "${VETOOLS_COM_HEADER}")

if(WIN32)
    # The library refers to the system's own types, which Wine's copy describes.
    file(GLOB wine_folders /usr/lib/*/wine /usr/lib/wine /usr/lib64/wine /opt/wine*/lib*/wine)
    find_path(VETOOLS_STDOLE_DIR stdole2.tlb PATHS ${wine_folders} PATH_SUFFIXES x86_64-windows NO_CMAKE_FIND_ROOT_PATH)
    if(NOT VETOOLS_STDOLE_DIR)
        message(FATAL_ERROR "The type library of vetools.dll refers to stdole2.tlb, which Wine brings along: install the "
                            "package wine64, or name the folder that holds it in VETOOLS_STDOLE_DIR.")
    endif()
    set(VETOOLS_TYPE_LIBRARY "${CMAKE_CURRENT_BINARY_DIR}/VeTools.tlb")
    add_custom_command(OUTPUT "${VETOOLS_TYPE_LIBRARY}" VERBATIM
        COMMAND ${VETOOLS_WIDL_COMMAND} -L "${VETOOLS_STDOLE_DIR}" -t -o "${VETOOLS_TYPE_LIBRARY}" "${VETOOLS_IDL}"
        DEPENDS "${VETOOLS_IDL}" "${VETOOLS_BASE_IDL}"
        COMMENT "Making the type library from ComUnit.idl")
endif()

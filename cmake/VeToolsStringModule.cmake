# vetools_add_string_module(NAME ROWS) makes a module with a string table, such as CVeTranslate and AfxLoadLibrary load, from a
# file of rows in UTF-8:
#
#   VETOOLS_STRING(1001, IDS_BEAM,  "Poutre")
#   VETOOLS_STRING(1002, IDS_PLATE, "Plaque d'about")
#
# The module is the target NAME; its file is NAME.dll on Windows, where the rows become a resource, and NAME.so elsewhere. An id is
# 0 to 65535 and stands once. In a text \" \\ \n \r \t have their meaning from C, as have numbers of three octal digits up to \177;
# every other character stands as it is. A program that wants the names of the ids includes the same file:
#
#   enum
#   {
#   #define VETOOLS_STRING(id, name, text) name = id,
#   #include "texts-fr.def"
#   };
function(vetools_add_string_module name rows)
    cmake_path(ABSOLUTE_PATH rows BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE OUTPUT_VARIABLE VETOOLS_STRING_ROWS)
    set(extension cpp)
    if(WIN32)
        set(extension rc)
    endif()
    set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}.${extension}")
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/StringModule.${extension}.in" "${source}" @ONLY)
    set_source_files_properties("${source}" PROPERTIES OBJECT_DEPENDS "${VETOOLS_STRING_ROWS}")

    add_library(${name} MODULE "${source}")
    set_target_properties(${name} PROPERTIES PREFIX "" LINKER_LANGUAGE CXX)
    target_compile_features(${name} PRIVATE cxx_std_20)
    # The headers alone: the module calls nothing of the library.
    target_include_directories(${name} PRIVATE $<TARGET_PROPERTY:VeTools::vetools,INTERFACE_INCLUDE_DIRECTORIES>)
endfunction()

# VETOOLS_SANITIZERS and, with clang, the coverage that fuzz targets are steered by: for the library as well as its users.
# The coverage calls a run-time library that comes with the sanitizers.
if(VETOOLS_SANITIZERS)
    add_compile_options(-fsanitize=${VETOOLS_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=${VETOOLS_SANITIZERS})
endif()
if(VETOOLS_BUILD_FUZZ AND VETOOLS_SANITIZERS AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# vetools_gtest_main: GoogleTest with its main(), compiled from the system's source package, so that both builds test with the
# same version. (The package's own library is of no use to the cross build.)
find_path(VETOOLS_GOOGLETEST_ROOT src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH)
if(NOT VETOOLS_GOOGLETEST_ROOT)
    message(FATAL_ERROR "The sources of GoogleTest are missing: install the package googletest, or configure without "
                        "VETOOLS_BUILD_TESTS.")
endif()
find_package(Threads REQUIRED)
add_library(vetools_gtest_main STATIC EXCLUDE_FROM_ALL
    "${VETOOLS_GOOGLETEST_ROOT}/src/gtest-all.cc"
    "${VETOOLS_GOOGLETEST_ROOT}/src/gtest_main.cc"
)
target_include_directories(vetools_gtest_main SYSTEM PUBLIC "${VETOOLS_GOOGLETEST_ROOT}/include")
target_include_directories(vetools_gtest_main PRIVATE "${VETOOLS_GOOGLETEST_ROOT}")
target_compile_options(vetools_gtest_main PRIVATE -O1 -g0 -w)
target_link_libraries(vetools_gtest_main PUBLIC Threads::Threads)

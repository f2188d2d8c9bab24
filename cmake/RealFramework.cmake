# vetools_use_real_framework(): builds against the application framework that the host has, instead of the subset of it in
# vetools/framework/. Those of our headers that carry the framework's names are covered by headers of the same path, made in the
# build tree, that include the framework; the sources behind them are not compiled.
#
# The framework's headers exist for one compiler that does not run where this project is developed, so nothing here has ever been
# compiled against them. What is known to be in the way: places above framework/ that use what our CString has beyond the
# framework's, which are View() and being made from a std::wstring_view.
set(VETOOLS_REAL_FRAMEWORK_DIR "${PROJECT_BINARY_DIR}/real-framework")

function(vetools_use_real_framework)
    list(APPEND VETOOLS_SOURCES framework/real/RealFramework.cpp)
    list(REMOVE_ITEM VETOOLS_PUBLIC_HEADERS platform/Platform.h)
    list(APPEND VETOOLS_PUBLIC_HEADERS framework/real/RealFramework.h)
    foreach(header IN LISTS VETOOLS_FRAMEWORK_HEADERS ITEMS platform/Platform.h)
        file(CONFIGURE OUTPUT "${VETOOLS_REAL_FRAMEWORK_DIR}/vetools/${header}"
            CONTENT "#pragma once\n#include \"vetools/framework/real/RealFramework.h\"\n")
    endforeach()
    install(DIRECTORY "${VETOOLS_REAL_FRAMEWORK_DIR}/vetools" DESTINATION include)
    return(PROPAGATE VETOOLS_SOURCES VETOOLS_PUBLIC_HEADERS)
endfunction()

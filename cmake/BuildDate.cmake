# The date on which the library is built, as a source of its own that every build looks after: vetools_add_build_date(target) adds
# it to a target, and as a script (cmake -DSOURCE=… -DTEMPLATE=… -DVETOOLS_VERSION=… -P BuildDate.cmake) this file writes it.
# It is the present day in UTC, or that of SOURCE_DATE_EPOCH; the compilers' own __DATE__ does not regard that everywhere.
# The source is written only when it changes, so that nothing is compiled again on the same day.

function(vetools_write_build_date)
    # In English whatever the locale, a blank in place of the first digit of days below 10.
    set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
    string(TIMESTAMP today "%m;%d;%Y" UTC)
    list(GET today 0 month)
    list(GET today 1 day)
    list(GET today 2 year)
    math(EXPR index "${month} - 1")
    list(GET months ${index} month)
    string(REGEX REPLACE "^0" " " day "${day}")
    set(VETOOLS_BUILD_DATE "${month} ${day} ${year}")
    configure_file("${TEMPLATE}" "${SOURCE}" @ONLY)
endfunction()

function(vetools_add_build_date target)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/BuildDate.cpp")
    set(template "${CMAKE_CURRENT_SOURCE_DIR}/util/BuildDate.cpp.in")
    add_custom_target(${target}_build_date VERBATIM
        COMMAND ${CMAKE_COMMAND} "-DSOURCE=${source}" "-DTEMPLATE=${template}" "-DVETOOLS_VERSION=${PROJECT_VERSION}"
                -P "${CMAKE_CURRENT_FUNCTION_LIST_FILE}"
        BYPRODUCTS "${source}"
        COMMENT "Looking at the build date")
    set_source_files_properties("${source}" PROPERTIES GENERATED TRUE)
    target_sources(${target} PRIVATE "${source}")
    add_dependencies(${target} ${target}_build_date)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
    vetools_write_build_date()
endif()

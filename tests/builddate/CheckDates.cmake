# cmake -DSCRIPT=… -DTEMPLATE=… -DFOLDER=… -P CheckDates.cmake: the date that a build writes, by seconds since 1970.
set(source "${FOLDER}/CheckedDate.cpp")

function(date_of epoch result)
    execute_process(COMMAND "${CMAKE_COMMAND}" -E env SOURCE_DATE_EPOCH=${epoch} TZ=UTC+12 LC_ALL=C.UTF-8
        "${CMAKE_COMMAND}" "-DSOURCE=${source}" "-DTEMPLATE=${TEMPLATE}" -DVETOOLS_VERSION=1.2.3 -P "${SCRIPT}"
        COMMAND_ERROR_IS_FATAL ANY)
    file(READ "${source}" text)
    string(REGEX MATCH "return \"([^\"]*)\"" match "${text}")
    set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

#   seconds    date
foreach(row
    "0          Jan  1 1970"
    "951782400  Feb 29 2000"
    "1610582399 Jan 13 2021"
    "1610582400 Jan 14 2021"
    "1610668799 Jan 14 2021"
    "1620000000 May  3 2021"
    "1628500000 Aug  9 2021"
    "1633000000 Sep 30 2021"
    "2145916799 Dec 31 2037"
)
    string(REGEX MATCH "^([0-9]+) +(.*)$" match "${row}")
    set(expected "${CMAKE_MATCH_2}")
    date_of(${CMAKE_MATCH_1} date)
    if(NOT date STREQUAL expected)
        message(SEND_ERROR "expected \"${expected}\", found \"${date}\": ${row}")
    endif()
endforeach()

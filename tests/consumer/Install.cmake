# cmake -DBUILD=... -DPREFIX=... -P Install.cmake: a fresh installation, without what an earlier one left.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}" COMMAND_ERROR_IS_FATAL ANY)

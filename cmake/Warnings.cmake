# vetools_enable_warnings(target): the warnings that this project's own code is free of.
# g++ 12 takes appending to a standard string for overlapping copies when sanitizers keep it from inlining: -Wrestrict
# has no true finding to offer there.
function(vetools_enable_warnings target)
    target_compile_options(${target} PRIVATE
        $<$<COMPILE_LANGUAGE:C>:-Wall;-Wextra;-Wpedantic>
        $<$<AND:$<COMPILE_LANGUAGE:C>,$<BOOL:${VETOOLS_WARNINGS_AS_ERRORS}>>:-Werror>
        $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wnon-virtual-dtor;-Wcast-align>
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>
        $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<BOOL:${VETOOLS_WARNINGS_AS_ERRORS}>>:-Werror>
    )
endfunction()

# cmake -DGENERATED=… -DTEMPLATE=… -DHEADER=… -P MakeComHeader.cmake: puts the interface that widl wrote into our header,
# without the includes of system headers.
file(READ "${GENERATED}" text)
string(REGEX REPLACE "#include <[^>]*>\n" "" text "${text}")
string(REGEX MATCH "/\\* Forward declarations \\*/.*" text "${text}")  # what stands before are conditions on those includes
string(REGEX REPLACE "\n#endif /\\* __[A-Za-z_]*_h__ \\*/\n?$" "" text "${text}")  # pragma once stands in the template
set(VETOOLS_GENERATED_INTERFACE "${text}")
configure_file("${TEMPLATE}" "${HEADER}" @ONLY)

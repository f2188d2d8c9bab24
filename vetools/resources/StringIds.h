#pragma once

/// The ids of the built-in texts, made from strings.def: IDS_UNIT_METRE is 20925.
enum VeStringId : unsigned int
{
#define VETOOLS_STRING(id, name, text) name = id,
#include "vetools/resources/strings.def"
};

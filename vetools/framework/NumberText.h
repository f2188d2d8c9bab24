#pragma once

/// Numbers as wide text and wide text as numbers, equal to the last character and to the last bit on both builds (internal).
#include "vetools/framework/NumberReader.h"
#include "vetools/framework/NumberWriter.h"

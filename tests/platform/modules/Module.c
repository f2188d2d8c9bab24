/* Shared objects that are no modules, or bad ones, and one that C makes: MODULE_FORM tells which. */
#include "vetools/platform/posix/StringModule.h"

#define NO_RECORD 0
#define MADE_IN_C 1
#define SMALL_RECORD 2
#define OTHER_VERSION 3
#define NO_STRINGS 4
#define TOO_MANY_STRINGS 5
#define DESCENDING 6
#define TWICE_THE_SAME 7
#define LARGE_ID 8
#define NEGATIVE_LENGTH 9
#define NO_TEXT 10
#define LARGER_RECORD 11

static const VeStringResource c_strings[] = {
#if MODULE_FORM == DESCENDING
    {2, 3, L"two"},
    {1, 3, L"one"},
#elif MODULE_FORM == TWICE_THE_SAME
    {1, 3, L"one"},
    {1, 3, L"uno"},
#elif MODULE_FORM == LARGE_ID
    {1, 3, L"one"},
    {65536, 3, L"two"},
#elif MODULE_FORM == NEGATIVE_LENGTH
    {1, -3, L"one"},
    {2, 3, L"two"},
#elif MODULE_FORM == NO_TEXT
    {1, 3, 0},
    {2, 3, L"two"},
#else
    {1, 3, L"one"},
    {2, 3, L"two"},
#endif
};

#if MODULE_FORM == NO_RECORD
__attribute__((visibility("default"))) int VeToolsOtherName(void)
{
    return (int)c_strings[0].id;
}
#elif MODULE_FORM == SMALL_RECORD
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule) - 1, VETOOLS_STRING_MODULE_VERSION, c_strings, 2};
#elif MODULE_FORM == LARGER_RECORD
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule) + 8, VETOOLS_STRING_MODULE_VERSION, c_strings, 2};
#elif MODULE_FORM == OTHER_VERSION
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule), VETOOLS_STRING_MODULE_VERSION + 1, c_strings, 2};
#elif MODULE_FORM == NO_STRINGS
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule), VETOOLS_STRING_MODULE_VERSION, 0, 2};
#elif MODULE_FORM == TOO_MANY_STRINGS
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule), VETOOLS_STRING_MODULE_VERSION, c_strings, (size_t)-1};
#else
const VeStringModule VeToolsStringModule = {sizeof(VeStringModule), VETOOLS_STRING_MODULE_VERSION, c_strings, 2};
#endif

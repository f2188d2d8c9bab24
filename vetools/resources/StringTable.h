#pragma once

#include <string_view>

/// The built-in text of an id (internal): StringTableText(IDS_UNIT_METRE) is "Mètre". Empty for an id without a text.
///
/// The text stands in the library's own string table: it is found by its index, nothing is copied, and it stays valid
/// for as long as the library is loaded. A terminator does not follow it.
std::wstring_view StringTableText(unsigned int id);

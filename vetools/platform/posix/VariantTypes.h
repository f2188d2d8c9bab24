#pragma once

#include <cstddef>
#include <optional>

#include "vetools/platform/posix/WinVariant.h"

// What the types of values are like, and how a reference is seen through. Internal to the platform layer.

/// The bits of a VARTYPE that say what the value is, without those that say where and how many.
constexpr VARTYPE BaseType(VARTYPE type)
{
    return type & VT_TYPEMASK;
}

/// Whether a VARIANT can have this type: one of the automation types, by reference, as an array, or as it is. Nothing and
/// null have neither references nor arrays.
bool IsValueType(VARTYPE type);

/// The bytes of a value of this base type as an element of an array; 0 for a type that has no arrays.
std::size_t ElementSize(VARTYPE type);

/// A value without VT_BYREF for a value of a valid type: the value itself, or what it refers to, through a VARIANT if need
/// be. Nothing is copied and nothing becomes owned. Nothing for a reference to nowhere, or beyond a second reference.
std::optional<VARIANT> Dereferenced(const VARIANT& value);

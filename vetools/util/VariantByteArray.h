#pragma once

#include <memory>

#include "vetools/framework/COleVariant.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// A VARIANT of bytes (VT_ARRAY | VT_UI1) whose size is known beforehand, and a buffer in which its bytes are read and changed:
///
///     CVariantByteArray array(&value, 16);
///     if (BYTE* bytes = array.Load())
///     {
///         bytes[0] = 1;
///         Send(array.Store());
///     }
///
/// Kept: copies have a VARIANT of their own but share one buffer: what one writes there, the other reads. The buffer lives until
/// the last of them lets go of it. Nothing here throws.
class VETOOLS_API CVariantByteArray : public COleVariant
{
public:
    /// VT_EMPTY, count 0, no buffer.
    CVariantByteArray() noexcept;
    /// As Attach.
    CVariantByteArray(const VARIANT* value, unsigned long count) noexcept;
    CVariantByteArray(const CVariantByteArray& other) noexcept;
    CVariantByteArray& operator=(const CVariantByteArray& other) noexcept;
    ~CVariantByteArray();

    /// Lets go of value and buffer, then copies the value, unless it is null, and remembers how many bytes it is to have. Returns 1
    /// when neither `value` is null nor `count` 0, else 0. What the value is shows when it is loaded.
    int Attach(const VARIANT* value, unsigned long count) noexcept;

    /// Copies the bytes of the value into a new buffer and returns it; the array keeps it. Returns null, and has no buffer then,
    /// when the value is not an array of exactly that many bytes. Returns null, and keeps the buffer, when the count is 0 or the
    /// value is VT_EMPTY or VT_NULL.
    BYTE* Load() noexcept;

    /// Makes the value an array of what is in the buffer, and returns it; it stays this object's. Returns null when the count is
    /// 0, when there is no buffer, or when the value is VT_NULL. The value stays as it was when there is no memory.
    const VARIANT* Store() noexcept;

    /// Lets go of value and buffer: VT_EMPTY, count 0.
    void Clear() noexcept;

    /// The buffer, `count` bytes long; null before Load.
    BYTE* GetByteArray() const noexcept;

private:
    std::shared_ptr<BYTE[]> m_bytes;
    DWORD m_count = 0;
};

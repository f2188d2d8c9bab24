// Values of OLE Automation: shown, converted, and as bytes.
#include <cstdio>

#include "vetools/vetools.h"

namespace
{

void Show(const COleVariant& value)
{
    std::printf("%-14ls%ls\n", VariantToString(value).GetString(), VariantToString(&value, true).GetString());
}

}  // namespace

int main()
{
    // What a developer sees of a value, and what the system makes of it as a text.
    Show(COleVariant(42));
    Show(COleVariant(0.5));
    Show(COleVariant(VARIANT_TRUE, VT_BOOL));
    Show(COleVariant(COleCurrency(12, 3400)));
    Show(COleVariant(COleDateTime(2021, 1, 18, 14, 5, 9)));
    Show(COleVariant(BYTE{42}));

    // The number in a text: ChangeType converts, VariantToDouble does not.
    COleVariant typed(L"1,234.5");
    typed.ChangeType(VT_R8);
    std::printf("%.1f\n", VariantToDouble(typed));

    // What cannot be converted throws from the class, and is 0 from the functions.
    COleVariant name(L"beam");
    std::printf("%ld\n", VariantToLong(name));
    try
    {
        name.ChangeType(VT_I4);
    }
    catch (COleException* exception)
    {
        std::printf("%08lX\n", static_cast<unsigned long>(static_cast<DWORD>(exception->m_sc)));
        exception->Delete();
    }

    // Bytes travel as an array; CVariantByteArray checks their number and gives a buffer to change them in.
    BYTE bytes[] = {1, 2, 3};
    COleVariant blob;
    PutBinaryIntoVariant(blob, bytes, 3);
    CVariantByteArray array(blob, 3);
    if (BYTE* const buffer = array.Load())
        buffer[0] = 9;
    BYTE* out = nullptr;
    const unsigned long size = GetBinaryFromVariant(&out, array.Store());
    std::printf("%ls of %lu, the first is %d\n", VariantToString(blob).GetString(), size, out[0]);
    delete[] out;
}

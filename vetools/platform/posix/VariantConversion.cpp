#include "vetools/platform/VariantConversion.h"

HRESULT ConvertVariant(VARIANT& destination, const VARIANT& source, VARTYPE type)
{
    return ::VariantChangeType(&destination, &source, 0, type);
}

#include "cli/StyleLayout.h"

#include <algorithm>
#include <iterator>

namespace
{

struct SkippedRecord
{
    unsigned int id;
    int lastVersion;      // files up to this one lack the record
    bool named, unnamed;  // for these loaders
};

// clang-format off
constexpr SkippedRecord c_skippedRecords[] = {
//   id  last version  named  unnamed
    {12, 1000,         false, true},
    {13, 1000,         true,  false},
    {14, 1000,         true,  false},
    {22, 1001,         true,  true},
    {23, 1001,         true,  true},
    {24, 1001,         true,  true},
    {25, 1001,         true,  true},
    {26, 1001,         true,  true},
};
// clang-format on

}  // namespace

bool HasStyleRecord(unsigned int id, int version, StyleLoader loader)
{
    return std::none_of(std::begin(c_skippedRecords), std::end(c_skippedRecords),
                        [&](const SkippedRecord& row) {
                            return row.id == id && version <= row.lastVersion &&
                                   (loader == StyleLoader::Named ? row.named : row.unnamed);
                        });
}

std::size_t StyleFileSize(int version, StyleLoader loader)
{
    std::size_t size = c_styleHeaderSize;
    for (unsigned int id = 1; id <= c_unitCount; ++id)
        if (HasStyleRecord(id, version, loader))
            size += StyleRecordSize(version);
    return size;
}

bool IsStyleVersion(int version)
{
    constexpr int c_firstWithFurtherField = 1012;
    return (version >= 1 && version <= c_styleVersion) || version >= c_firstWithFurtherField;
}

#include "vetools/valuetext/DecimalParts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <unordered_map>
#include <vector>

namespace
{

constexpr std::wstring_view c_partCharacters = L"Ee0123456789+-.,";

/// Hashes of every stretch of a text, each in constant time once the text has been read.
class StretchHashes
{
public:
    explicit StretchHashes(std::wstring_view text)
        : m_prefixes(text.size() + 1)
        , m_powers(text.size() + 1, 1)
    {
        for (std::size_t i = 0; i < text.size(); ++i)
        {
            m_prefixes[i + 1] = m_prefixes[i] * c_base + static_cast<std::uint64_t>(text[i]);
            m_powers[i + 1] = m_powers[i] * c_base;
        }
    }

    std::uint64_t Of(std::size_t position, std::size_t length) const
    {
        return m_prefixes[position + length] - m_prefixes[position] * m_powers[length];
    }

private:
    static constexpr std::uint64_t c_base = 0x9E3779B97F4A7C15;

    std::vector<std::uint64_t> m_prefixes;
    std::vector<std::uint64_t> m_powers;
};

/// The parts that were removed so far. All that a later word loses to them is found by looking its stretches up, not by
/// trying each part.
class RemovedParts
{
public:
    explicit RemovedParts(wchar_t separator)
        : m_separator(separator)
    {
    }

    void Add(std::wstring_view part)
    {
        m_orders[StretchHashes(part).Of(0, part.size())].push_back(m_parts.size());
        m_lengths.insert(part.size());
        m_parts.emplace_back(part);
    }

    /// Removes the parts from a word one after the other, in the order in which they were added.
    void RemoveFrom(std::wstring& word) const
    {
        for (std::size_t order = FirstIn(word, 0); order != c_none; order = FirstIn(word, order + 1))
        {
            const std::wstring& part = m_parts[order];
            std::wstring rest;
            std::size_t begin = 0;
            for (std::size_t found; (found = word.find(part, begin)) != std::wstring::npos; begin = found + part.size())
                rest.append(word, begin, found - begin);
            word = rest.append(word, begin);
        }
    }

private:
    static constexpr std::size_t c_none = static_cast<std::size_t>(-1);

    /// The first part, from `order` on, that the word holds.
    std::size_t FirstIn(std::wstring_view word, std::size_t order) const
    {
        std::size_t position = word.find(m_separator);
        if (position == std::wstring_view::npos || order == m_parts.size())
            return c_none;

        std::size_t first = c_none;
        const StretchHashes hashes(word);
        for (; position != std::wstring_view::npos; position = word.find(m_separator, position + 1))
        {
            for (const std::size_t length : m_lengths)
            {
                if (length > word.size() - position)
                    break;
                const auto known = m_orders.find(hashes.Of(position, length));
                if (known == m_orders.end())
                    continue;
                auto next = std::lower_bound(known->second.begin(), known->second.end(), order);
                while (next != known->second.end() && *next < first && m_parts[*next] != word.substr(position, length))
                    ++next;  // another part of the same hash
                if (next != known->second.end())
                    first = std::min(first, *next);
            }
        }
        return first;
    }

    wchar_t m_separator;
    std::vector<std::wstring> m_parts;                                     // in order; each begins with the separator
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> m_orders;  // by hash, ascending
    std::set<std::size_t> m_lengths;
};

}  // namespace

std::wstring WithoutDecimalParts(std::wstring_view text, wchar_t separator)
{
    std::wstring result;
    result.reserve(text.size());
    RemovedParts removed(separator);
    while (!text.empty())
    {
        const std::size_t wordBegin = std::min(text.find_first_of(c_partCharacters), text.size());
        const std::size_t wordEnd = std::min(text.find_first_not_of(c_partCharacters, wordBegin), text.size());
        std::wstring word(text.substr(wordBegin, wordEnd - wordBegin));
        removed.RemoveFrom(word);
        const std::size_t part = word.find(separator);
        if (part != std::wstring::npos)
        {
            removed.Add(std::wstring_view(word).substr(part));
            word.resize(part);
        }
        result.append(text, 0, wordBegin).append(word);
        text.remove_prefix(wordEnd);
    }
    return result;
}

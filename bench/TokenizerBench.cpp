// Texts cut at a delimiter beside getline and find, and lists of numbers beside a stream into a set.
#include <benchmark/benchmark.h>

#include <list>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "vetools/util/NumberList.h"
#include "vetools/util/StringTokenizer.h"

namespace
{

constexpr int c_elements = 1000;

/// "12;element;…": elements of different lengths, most short.
std::wstring DelimitedText()
{
    std::wstring text;
    for (int i = 0; i < c_elements; ++i)
    {
        if (i != 0)
            text += L';';
        text += i % 3 == 0 ? L"element number " + std::to_wstring(i) + L" of many" : std::to_wstring(i);
    }
    return text;
}

void Tokenize(benchmark::State& state)
{
    CString text(DelimitedText().c_str());
    for (auto _ : state)
    {
        const CStringTokenizer tokenizer(text, L';');
        benchmark::DoNotOptimize(tokenizer.CountElements());
    }
    if (CStringTokenizer(text, L';').CountElements() != c_elements)
        state.SkipWithError("a wrong count");
}
BENCHMARK(Tokenize);

void TokenizeByGetline(benchmark::State& state)
{
    const std::wstring text = DelimitedText();
    for (auto _ : state)
    {
        std::vector<std::wstring> elements;
        std::wistringstream stream(text);
        for (std::wstring element; std::getline(stream, element, L';');)
            elements.push_back(element);
        benchmark::DoNotOptimize(elements.size());
    }
}
BENCHMARK(TokenizeByGetline);

void TokenizeByFind(benchmark::State& state)
{
    const std::wstring text = DelimitedText();
    for (auto _ : state)
    {
        std::vector<std::wstring> elements;
        std::size_t start = 0;
        for (std::size_t end = text.find(L';'); end != std::wstring::npos; end = text.find(L';', start))
        {
            elements.push_back(text.substr(start, end - start));
            start = end + 1;
        }
        elements.push_back(text.substr(start));
        benchmark::DoNotOptimize(elements.size());
    }
}
BENCHMARK(TokenizeByFind);

/// "1000 998 …": descending, each number twice.
std::wstring NumbersText()
{
    std::wstring text;
    for (int i = 2 * c_elements; i > 0; --i)
        text += std::to_wstring((i + 1) / 2) + L" ";
    return text;
}

void ReadNumberList(benchmark::State& state)
{
    const CString text(NumbersText().c_str());
    std::list<long> values;
    for (auto _ : state)
    {
        ParseStringToLong(text, values, 0);
        benchmark::DoNotOptimize(values.size());
    }
    if (values.size() != c_elements)
        state.SkipWithError("a wrong count");
}
BENCHMARK(ReadNumberList);

void ReadNumberListByStream(benchmark::State& state)
{
    const std::wstring text = NumbersText();
    for (auto _ : state)
    {
        std::set<long> numbers;
        std::wistringstream stream(text);
        for (long number = 0; stream >> number;)
            numbers.insert(number);
        const std::list<long> values(numbers.begin(), numbers.end());
        benchmark::DoNotOptimize(values.size());
    }
}
BENCHMARK(ReadNumberListByStream);

void ReadLongRange(benchmark::State& state)
{
    const CString text(L"1-1000000");
    for (auto _ : state)
    {
        std::list<long> values;
        ParseStringToLong(text, values, 0);
        benchmark::DoNotOptimize(values.size());
    }
}
BENCHMARK(ReadLongRange)->Unit(benchmark::kMillisecond);

}  // namespace

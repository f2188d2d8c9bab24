#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/ValueSource.h"

class QuantityReader;

namespace CLI
{
class App;
}

/// What became of one value.
struct ValueResult
{
    bool isGood = false;
    double value = 0.0;    ///< the number for programs
    std::string text;      ///< what is written; empty when the value failed
    std::string expected;  ///< what was expected of a value that failed
};

/// Turns one text into a result, all of whose members but isGood it finds as the last call left them. The text is
/// well-formed UTF-8 and not blank.
using ValueFunction = std::function<void(std::string_view text, ValueResult& result)>;

/// How results are written, as the options of the command give it.
struct ReportSettings
{
    bool json = false;
    std::string unit;  ///< the unit of the numbers for programs
};

/// --json.
void AddReportOptions(CLI::App& command, ReportSettings& settings);

/// Writes the result of every value on a line of its own, failures on standard error with what was expected.
///
/// Values of an input keep their place: a line that is blank or fails gives an empty line, so that results can be
/// pasted beside what they were made from. With --json each value gives one object on a line:
///
///   {"line":3,"input":"12.5","value":2810.11354540032,"unit":"lb","text":"2810.114 lb"}
///   {"line":4,"input":"abc","error":"expected a number such as 12.5 or 12.5 kN"}
///
/// Returns the program's exit code.
int ReportValues(std::vector<std::string> arguments, const SourceSettings& source, const ReportSettings& settings,
                 const ValueFunction& function);

/// The same for values that are quantities: they are read in SI, and `write` fills value and text (which is empty) of the
/// result.
int ReportQuantities(std::vector<std::string> arguments, const SourceSettings& source, const ReportSettings& settings,
                     QuantityReader& reader, const std::function<void(double si, ValueResult& result)>& write);

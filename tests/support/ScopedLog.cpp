#include "tests/support/ScopedLog.h"

#include <regex>

#include "tests/support/LogTestSupport.h"

std::vector<std::string> ScopedLog::Errors() const
{
    static const std::regex s_beginning(R"(PID:# veutilitiescommon\(\d+\)TIME Error : )");
    const std::string text = LogTextOf(m_folder / "Log.txt");
    std::vector<std::string> errors;
    for (std::sregex_iterator i(text.begin(), text.end(), s_beginning), end; i != end; ++i)
    {
        const std::string rest = i->suffix();
        errors.push_back(rest.substr(0, rest.find("PID:")));
    }
    return errors;
}

#include <cstdlib>

/// The tests read dates in English, as under Wine, whoever runs them.
static const int s_speaksEnglish = ::setenv("LC_ALL", "C.UTF-8", 1);

// Loads the module of texts beside it; success is the exit code.
#include <cstdio>

#include "vetools/vetools.h"

enum
{
#define VETOOLS_STRING(id, name, text) name = id,
#include "greetings.def"
};

int main()
{
    const CVeTranslate texts(nullptr, L"Greetings");
    const bool asExpected = texts.GetStringDoc(IDS_HELLO) == L"Grüß Gott" &&
                            texts.GetStringDoc(IDS_WELCOME) == L"Bienvenue à tous" && texts.GetStringDoc(1).IsEmpty();
    std::printf("%s\n", asExpected ? "the module answers" : "the module gives a wrong answer");
    return asExpected ? 0 : 1;
}

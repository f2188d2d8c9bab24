// The small services: a stopwatch, a message sink, exceptions with the id of a message, texts of two languages, day numbers.
#include <cstdio>

#include "vetools/vetools.h"

// The ids of the texts; ExampleFrench and ExampleEnglish are modules that the build makes of such rows.
enum
{
#define VETOOLS_STRING(id, name, text) name = id,
#include "services-fr.def"
};

static void ShowOnConsole(const wchar_t* text, int flag)
{
    std::printf("%s%ls\n", flag != 0 ? "! " : "", text);
}

static void Design(int beams)
{
    if (beams == 0)
        throw new CVeExceptionBase(IDS_NO_BEAM);
}

int main()
{
    // Texts of the program in French, which becomes the current language, and texts of documents in English.
    CVeTranslate language(L"ExampleFrench", L"ExampleEnglish");
    CString text;
    text.LoadString(IDS_BEAM);
    std::printf("%ls is %ls in documents\n", text.GetString(), language.GetStringDoc(IDS_BEAM).GetString());
    language.ChangeDllDoc(L"no such module");
    std::printf("without a module there is no text: \"%ls\"\n", language.GetStringDoc(IDS_BEAM).GetString());

    // Messages reach the handler of the host; before there is one, they are dropped.
    CConsoleOutput::WriteMessage(L"nobody reads this", 0);
    CConsoleOutput::SetHandle(&ShowOnConsole);
    CConsoleOutput::WriteMessage(L"12 beams", 0);

    // An exception that carries the id of its message.
    try
    {
        Design(0);
    }
    catch (CVeExceptionBase* exception)
    {
        text.LoadString(static_cast<UINT>(exception->MessageID()));
        CConsoleOutput::WriteMessage(text, 1);
        exception->Delete();
    }

    // Two intervals, summed up; the time between them does not count.
    Chronometer watch;
    watch.Start();
    watch.Stop();
    const double first = watch.GetEllapsedTime(Chronometer::Seconds);
    watch.Start();
    watch.Stop();
    std::printf("%s\n", watch.GetEllapsedTime(Chronometer::Seconds) >= first ? "summed up" : "forgotten");

    // Days by their number, and the number of a build by its date.
    std::printf("day %d, build %d\n", GetModifiedJulianDay(14, 1, 2021), BuildNumberFromDate("Jan 14 2021"));
    if (GetBuildNumber() >= BuildNumberFromDate("Jan 14 2021"))
        std::printf("this library is not older\n");
}

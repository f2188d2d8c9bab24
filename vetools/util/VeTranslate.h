#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

/// Two modules with the texts of a language: one from which the program takes its texts, and one with the texts of documents,
/// which may be in another language.
///
///     CVeTranslate language(L"program-fr.dll", L"document-en.dll");
///     CString menu;
///     menu.LoadString(IDS_MENU);                    // French: from the current resource module
///     CString title = language.GetStringDoc(IDS_TITLE);  // English
///
/// Modules are named as for AfxLoadLibrary (vetools/framework/ModuleState.h), and made from rows of texts by the CMake function
/// vetools_add_string_module. What cannot be loaded gives a null handle, whatever there is under the name, and no text.
///
/// Kept: copies share the handles of the original without counting them, and each destructor frees them. Where there is more
/// than one copy, the first destructor unloads the modules and the others free handles that are no longer valid, which does
/// nothing. The fields stand in the order that modules compiled against the class rely on.
class VETOOLS_API CVeTranslate
{
public:
    /// Loads both modules and makes the first one the framework's current resource module.
    ///
    /// resDll  null: no module is loaded, and the current resource module stays; so it does where loading fails
    /// docDll  null counts as a name that cannot be loaded
    CVeTranslate(const wchar_t* resDll, const wchar_t* docDll);
    CVeTranslate(const CVeTranslate& other);
    CVeTranslate& operator=(const CVeTranslate& other);

    /// Frees both modules. Kept: the current resource module is not restored. Where it was the one that is unloaded here,
    /// loading a text finds none, until the host sets another.
    virtual ~CVeTranslate();

    /// Frees the module of the documents' texts and loads another one, which may be the same.
    void ChangeDllDoc(const wchar_t* docDll);

    /// The text of the documents' module with that id, whatever its length; empty where there is none, or no module.
    CString GetStringDoc(int id) const;

    /// The module of the documents' texts; null when none is loaded.
    HINSTANCE GetHandleDoc() const;

protected:
    /// The length of the names, terminator included. A longer name is loaded whole, and cut here.
    static constexpr int c_nameLength = 260;

    HINSTANCE m_hResDll;
    HINSTANCE m_hDocDll;
    wchar_t m_szResDll[c_nameLength];
    wchar_t m_szDocDll[c_nameLength];

private:
    /// Loads the program's texts and makes them current; the handle, which is not stored.
    HINSTANCE LoadDllRes(const wchar_t* name);
    /// Loads the documents' texts; the handle, which is not stored.
    HINSTANCE LoadDllDoc(const wchar_t* name);
};

/// The text of a module's string table with that id, whatever its length. Empty where there is none: for ids below 0 and
/// beyond 65535, for a null module and for one that is no longer loaded.
VETOOLS_API CString VeGetStringDoc(HINSTANCE module, int id);

#pragma once

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

/// A folder, named by its path, and what can be done with it.
///
///     const CVeDirectory results(L"C:\\jobs\\results\\");
///     if (!results.IsExist())
///         results.Create();
///     const CString name = results.GetIncName(L"calc.txt");   // calc1.txt, or the next one that is free
///
/// Paths are the system's own; off Windows slashes separate as well as backslashes, and a path may be as long as the system
/// lets it. On Windows a path of more than 260 characters needs the extended form `\\?\C:\...`. A text given here ends at its
/// first null character.
///
/// Nothing is reported anywhere: the results say what there is to say, and where a result is that of a call of the system,
/// its GetLastError holds. Folders are searched in the order of their names, upper and lower case alike.
class VETOOLS_API CVeDirectory
{
public:
    /// Takes a path; one backslash at its end is left out: "C:\out\" names C:\out, and "C:\out\\" names "C:\out\".
    CVeDirectory(CString path);
    CVeDirectory(const CVeDirectory&) = default;
    CVeDirectory& operator=(const CVeDirectory&) = default;
    virtual ~CVeDirectory();

    /// Makes the folder, whose parent must exist; 0 when that fails, also for a folder that exists.
    int Create() const;
    /// Whether the folder can be searched and has any entry; every folder has "." and "..", save an empty root.
    /// Kept: the empty path stands for the root.
    int IsExist() const;
    /// Removes the folder and all that is in it, as Remove does. 1 also when there is no such folder.
    int Destroy() const;
    /// Kept: does nothing and returns 1.
    int Purge() const;

    /// Removes a folder and all that is in it, however many and as deep as paths reach; what cannot be deleted stays. Returns
    /// whether the folder itself is gone: 0 when something in it stayed. 1 also when the path cannot be searched: it is no
    /// folder, or its entries may not be read.
    ///
    /// A symbolic link is deleted, never followed, be it `path` itself or something below it. (Wine deletes no link to a
    /// folder that is not empty, so that the result is 0, and in the place of a link to a file that file.)
    ///
    /// Kept: nothing happens, and the result is 0, when the folder of this object does not exist, whatever `path` names. That
    /// is asked anew for every folder below `path`: when the removal takes this object's own folder, what comes after it
    /// stays.
    /// The root of a drive (an empty path, separators alone, `C:`, `C:\`, `C:\a\..`) is not emptied: 0, and nothing happens.
    int Remove(CString path) const;

    /// Copies the files of another folder into this one, under their names. What is there already stays as it is; folders
    /// below `sourceFolder` are not copied. 0 when this folder does not exist or nothing is found in the other, else 1, even if
    /// not all files could be copied.
    int Copy(CString sourceFolder) const;

    /// Whether the path is not empty and has none of the characters é è à â ê î ô ç.
    int IsValidPath() const;

    /// Whether the parent of this folder has an entry with the name of this folder, upper and lower case alike.
    /// Kept: the argument is not read.
    int IsFileIn(CString name) const;

    /// The path of a folder with that name below this one; empty when there is none.
    ///
    /// The nearest one is found: first the folders in this one are looked at, then the folders in those, and so on; of
    /// several at the same depth the first one in the order of their paths. Upper and lower case are alike; the path has the
    /// spelling of the disk. A symbolic link may be found, but is not searched.
    ///
    ///     CVeDirectory(L"C:\\jobs").GetChild(L"results")   C:\jobs\results, else C:\jobs\2021\results, …
    CString GetChild(CString name) const;
    /// The same from the parent of this folder on: beside this folder first, then below it and those beside it. A path
    /// of one component has the current folder for its parent.
    CString GetFriend(CString name) const;

    /// Lists the names of the entries of this folder, without their last four characters: the extension of a file, which is
    /// assumed to be a point and three letters.
    ///
    /// names   the array, made longer with `realloc`; give a pointer to null, or to an array of an earlier call, whose slots
    ///         are written over from the first. The caller frees it with `free`. When nothing is found it is freed here, and
    ///         null
    /// count   receives how many slots the array has
    /// filter  what the names end with, such as L".txt"; null or empty for all
    ///
    ///     wchar_t (*names)[260] = nullptr;
    ///     unsigned int count = 0;
    ///     CVeDirectory(L"C:\\styles").GetFileNames(&names, &count, filter);   // metric.sty, si.sty: metric, si
    ///     std::free(names);
    ///
    /// Kept: folders are listed too, and lose four characters as well.
    /// Kept: for a name of exactly four characters the slot is not written. It is an empty text in an array that was made
    /// here; in one that was given it holds what it held, and beyond the end of that nothing that may be read.
    /// A name of fewer characters is listed whole.
    /// When memory runs out, the list ends there. Nothing happens when `names` or `count` is null.
    void GetFileNames(wchar_t (**names)[260], unsigned int* count, wchar_t* filter) const;

    /// Renames this object, not the folder: to the first path for which there is no folder, of C:\out, C:\out2, C:\out3, ….
    ///
    /// counter  receives the number in the path; 0 when that is C:\out itself. May be null
    /// Returns the new path.
    CString IncName(unsigned int* counter);

    /// The name of a file for which there is no entry in this folder yet: its number is one more than the entries that look
    /// like it, or the next one that is free. In a folder with calc.txt and calc2.txt, "calc.txt" gives calc3.txt; where
    /// there are none, calc1.txt. Empty when the folder does not exist.
    ///
    /// Drive and folder of `name` are left out. Kept: an entry counts when the base name and the extension stand anywhere in
    /// it, upper and lower case being different.
    CString GetIncName(CString name) const;

    CString m_strPath;  ///< without the backslash at its end

private:
    CString GetDir(CString name, CString root) const;
};

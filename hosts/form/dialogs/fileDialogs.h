#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace form {

// Kinds of files as the system's dialogs want them: names and patterns, each ended by a zero.
inline constexpr wchar_t kDataSets[] =
    L"netCDF data sets (*.nc;*.cdf;*.nc4;*.netcdf)\0*.nc;*.cdf;*.nc4;*.netcdf\0All files\0*.*\0";
inline constexpr wchar_t kKeyFiles[] = L"KEW Files (*.kew)\0*.kew\0All files\0*.*\0";
inline constexpr wchar_t kPathFiles[] = L"Text files (*.txt;*.csv)\0*.txt;*.csv\0All files\0*.*\0";
inline constexpr wchar_t kPictures[] =
    L"PNG picture (*.png)\0*.png\0Enhanced metafile (*.emf)\0*.emf\0";

// The file that the user chooses; nothing when he does not.
std::optional<std::wstring> askOpenFile(HWND owner, const wchar_t* title, const wchar_t* kinds);
// The same for writing; the ending is that of the chosen kind when none is given. An old file is
// asked about.
std::optional<std::wstring> askSaveFile(HWND owner, const wchar_t* title, const wchar_t* kinds,
                                        const std::wstring& preset, const wchar_t* ending);

}  // namespace form

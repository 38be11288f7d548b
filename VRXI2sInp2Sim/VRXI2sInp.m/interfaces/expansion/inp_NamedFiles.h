#pragma once

#include "VRXBasUtlFilePath.h"
#include "cow_List.h"
#include "cow_String.h"

class inp_Keyword;

/// The file in the directory given, or else in the include path, be it there or not.
VRXBasUtlFilePath inp_LookForFile(cow_String const& directory, cow_String const& file,
                                  cow_String const& includePath);

/// The name of a deck from a row of *MANIFEST, without quotes and with its extension.
cow_String inp_ManifestDeckName(cow_String const& written);
/// Where decks of *MANIFEST are looked for first.
cow_String inp_ManifestDirectory();

/// Paths of all files that keywords name: data files of INPUT=, files of FILE= and the like, decks of
/// *MANIFEST, and `furtherNames`, which keywords named that are not in the list. Nothing is opened.
///
/// Wants keywords as the reader leaves them: expansion takes INPUT= away. An abbreviation counts as what
/// expansion would make of it. Files that do not exist are left out.
cow_List<cow_String> inp_NamedFiles(cow_List<inp_Keyword> const& keywords,
                                    cow_List<cow_String> const& furtherNames,
                                    cow_String const& includePath);

#pragma once
// Where the program's data files are.

#include <vector>

#include "state/shared_fields.h"

// The program's folder: WORDFLURN_HOME; else the folder of the program when it can be written and
// is no installed bin folder; else "wordflurn" in the user's data folder.
String FindAppFolder();

// Fills in the path of every data file: lasting ones in `appFolder`, temporary ones in
// `workFolder`.
void SetDataPaths(SharedFields& fields, const String& appFolder, const String& workFolder);

// Whether it is the name of a temporary file, such as an earlier run may have left.
bool IsTemporaryFile(StringView name);

// Deletes the five temporary files and the page of the viewer; whatever goes wrong is passed over.
void DeleteTemporaryFiles(const SharedFields& fields);

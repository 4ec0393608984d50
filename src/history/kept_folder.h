#pragma once

#include <QString>

// Where the program keeps what belongs to the data folder and must not lie in it: earlier versions and what
// was typed and not saved. Under the system's place for a program's own data there is one folder for each
// data folder, named by a hash of the data folder's canonical path; its file "folder.txt" says which it is.

// The path of that folder for the data folder of the working directory, made where it is missing. A data
// folder that was moved on its disk, so that its old path is gone, is known again and keeps what it had.
// Empty where nothing can be kept.
QString keptFolder();

// The data folder itself, without links: what keptFolder() goes by. It need not exist.
QString canonicalDataFolder();

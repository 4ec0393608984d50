#pragma once

#include "files/result.h"

// What is done with the archive of Module1 as a whole. Nothing here asks or tells a person.

// Refused, with the reason, while the archive that lies on the disk could not be read: nobody knows then
// which songs there are, so nothing that belongs to one may be written.
Result checkArchive();

// Whether a record was changed or added since the archive was last read or saved. Text typed behind the
// last record is no record yet, but it is somebody's work, and counts.
bool hasUnsavedChanges();

// Drops all records, what was typed behind them, and a refusal, as before the first reading.
void forgetArchive();

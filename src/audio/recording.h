#pragma once

#include "files/result.h"

// Puts a copy of `source` in place as the recording of the record. Refused while the archive must not be
// written; after anything but fine nothing has changed.
Result storeRecording(int record, const QString &source);

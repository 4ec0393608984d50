#pragma once

#include "files/result.h"

// Puts a copy of `source` in place as the recording of record `pageRecord`, and the category into record
// `audioRecord` of Module1. Refused while the archive must not be written; after anything but fine neither
// has changed.
Result storeRecording(int pageRecord, const QString &source, int audioRecord, int category);

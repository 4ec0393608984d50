#pragma once

#include "files/data_folder.h"
#include "files/result.h"

// Putting page files in place. Nothing here deletes a file, but for a page that another one replaces.

// What storePage() did.
struct [[nodiscard]] PageStored {
    Result page; // anything but fine: both pages are as they were
    Result
        emptySheet; // of a left page; anything but fine: the left page is in place, the right one as it was
};

// Puts a copy of `source` in place as the record's left or right page. With a left page comes the empty
// sheet as the right one, whatever was there. Refused while the archive must not be written.
PageStored storePage(int record, Page side, const QString &source);

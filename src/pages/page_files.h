#pragma once

#include "files/data_folder.h"
#include "files/result.h"

// Putting page files in place and out of the way. Nothing here deletes a file, but for a page that another
// one replaces.

// What storePage() did.
struct [[nodiscard]] PageStored {
    Result page; // anything but fine: both pages are as they were
    Result
        emptySheet; // of a left page; anything but fine: the left page is in place, the right one as it was
};

// Puts a copy of `source` in place as the record's left or right page. With a left page comes the empty
// sheet as the right one, whatever was there. Refused while the archive must not be written.
PageStored storePage(int record, Page side, const QString &source);

// What became of a page that was to be set aside.
struct [[nodiscard]] PageAside {
    Result result; // Unwritable: the page lies where it lay
    QString newPath; // what the page is called now; empty where there was none
};

// Gives the page that lies under this number a name under which nothing but a person looks for it, such as
// "12L (old 1).jpg", so that it cannot pass for the page of a new song. A page that is a link is renamed
// itself. No page there is fine.
PageAside setAside(int record, Page page);

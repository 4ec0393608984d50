#pragma once

#include "files/data_folder.h"
#include "files/result.h"

// What became of a page that was to be set aside.
struct [[nodiscard]] PageAside {
    Result result; // Unwritable: the page lies where it lay
    QString newPath; // what the page is called now; empty where there was none
};

// Gives the page that lies under this number a name under which nothing but a person looks for it, such as
// "12L (old 1).jpg", so that it cannot pass for the page of a new song. A page that is a link is renamed
// itself. No page there is fine.
PageAside setAside(int record, Page page);

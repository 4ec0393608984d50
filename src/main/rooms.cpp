#include "main/rooms.h"

void Rooms::reopenMainWindow()
{
    form1.unload();
    form1.show();
}

// An open list would only come forward, with the songs of the source before.
void Rooms::openMerging()
{
    merging_.unload();
    merging_.show();
}

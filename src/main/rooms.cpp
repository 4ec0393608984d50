#include "main/rooms.h"

// An open list would only come forward, with the songs of the source before.
void Rooms::openMerging()
{
    merging_.unload();
    merging_.show();
}

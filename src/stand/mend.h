#pragma once

#include "files/result.h"
#include "stand/finding.h"

// Does what a finding offers, and nothing else. It looks again first: what was to be made and has come
// meanwhile, or was to be renamed and has gone, stays as it is. Not fine: nothing has changed.
Result mend(const Mending &mending);

// For people: what mend() has done, "12l.JPG is called 12L.jpg now".
QString doneText(const Mending &mending);

#pragma once

class Edits;
class Recovery;
class Versions;

// At the start, with the archive read: asks whether what an earlier run of the program left unsaved is wanted
// back, and puts it into Module1 as unsaved changes, or keeps it among the versions. Asks nothing where all
// of it is in the archive by now. Returns the last song that was put back, else 0.
int offerWhatWasTyped(Recovery &recovery, Versions &versions, Edits &edits);

struct PutBack;
class QString;

// For people: what came of putting them back.
QString putBackText(const PutBack &put);

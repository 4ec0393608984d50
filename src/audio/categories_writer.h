#pragma once

#include "audio/categories_file.h"

// Names to begin with where there is no generi.js.
CategoryNames usualCategories();

// Whether a save carries along all that the file holds, or begins one. Where the file is Damaged and not
// just too short, a save writes it anew, and what stands from its bad line on is lost.
bool isUnderstood(const CategoriesReading &reading);

// What saveCategories() did. Unless it is Saved, nothing was written.
struct [[nodiscard]] CategoriesSaving {
    enum class Outcome {
        Saved,
        Changed, // another program has written other things into the file than were read
        NotRead, // the file has become unreadable; the result tells how
        NotWritten // the result tells why; the file is as it was
    };

    Outcome outcome = Outcome::Saved;
    Result result;
    CategoriesReading onDisk; // of Changed: what the file holds now; saving with this reading replaces it
};

// Gives the 33 categories of the archive's own generi.js these names, and takes them into Module1. `read`
// is what was last read or written here, and becomes what was written. All else in the file stays: more
// than 33 names, remarks, other lines. What the files cannot carry of a new name is treated as in the text
// boxes.
CategoriesSaving saveCategories(CategoriesReading &read, const CategoryNames &names);

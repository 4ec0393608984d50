#pragma once

#include <QStringList>

// The titles in alphabetical order, as a person of the user's language expects it: without regard to case,
// letters with accents beside their base letters. Titles that are equal in this keep their order.
QStringList alphabetical(const QStringList &titles);

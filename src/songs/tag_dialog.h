#pragma once

#include <QString>
#include <QStringList>

class QWidget;

// Asks for words to be added to the tags; empty where the person thinks better of it. Only what the files
// can carry gets in.
QString askForTags(QWidget *parent, qsizetype songs);

// Asks which of these tags is to be taken away; empty where the person thinks better of it.
QString askWhichTag(QWidget *parent, const QStringList &tags);

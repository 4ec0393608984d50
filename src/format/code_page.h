#pragma once

#include <QByteArray>
#include <QString>

// The 8-bit code page of every data file: Windows-1252 as web browsers read it, on every platform. The
// five bytes that it leaves unassigned (81, 8D, 8F, 90, 9D) stand for the control characters of the same
// number, so that every byte survives reading and writing. See docs/file-formats.md.

QString fromCodePage(QByteArrayView bytes);

// A function that does the same for any part of `whole`, and does it faster where it can.
using CodePageReader = QString (*)(QByteArrayView part);
CodePageReader codePageReaderFor(QByteArrayView whole);

// A character that the code page lacks becomes "?"; whoever takes text from a person asks
// isInCodePage() first.
QByteArray toCodePage(QStringView text);
char toCodePage(QChar character);

bool isInCodePage(QChar character);

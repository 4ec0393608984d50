#pragma once

#include "support/test_folder.h"

// What is scanned: its left half is red, its right half blue.

inline QByteArray scan(const char *format, QImage::Format pixels = QImage::Format_RGB32,
                       QSize size = {40, 20})
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.setPixelColor(0, 0, Qt::red);
    image.setPixelColor(1, 0, Qt::blue);
    return encoded(image.scaled(size).convertToFormat(pixels, Qt::ThresholdDither), format, 100);
}

// A PDF of A4 pages, which are drawn so many times over.
inline QByteArray pdf(int pages, int times = 1)
{
    const auto drawn = QByteArray("1 0 0 rg 0 0 298 842 re f 0 0 1 rg 298 0 298 842 re f\n").repeated(times);
    QByteArray kids, objects;
    for (int i = 4; i < 4 + pages; i += 1) {
        kids += QByteArray::number(i) + " 0 R ";
        objects += QByteArray::number(i)
            + " 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 596 842]/Contents 3 0 R>>endobj\n";
    }
    return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Count "
        + QByteArray::number(pages) + "/Kids[" + kids + "]>>endobj\n3 0 obj<</Length "
        + QByteArray::number(drawn.size()) + ">>stream\n" + drawn + "\nendstream endobj\n" + objects
        + "trailer<</Root 1 0 R>>\n%%EOF\n";
}

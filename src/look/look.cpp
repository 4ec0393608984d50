#include "look/look.h"

#include "look/style.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>

// Outside any namespace, as the macro demands.
static void loadImages()
{
    Q_INIT_RESOURCE(images);
}

static QFont fontOf(const QStringList &families, double points)
{
    QFont font(families);
    font.setPixelSize(qRound(points * 96 / 72));
    return font;
}

QFont verdana(double points)
{
    return fontOf({"Verdana", "DejaVu Sans"}, points);
}

QFont msSansSerif(double points)
{
    // The bitmaps that Windows has under the plain name cannot be drawn at every size. The last is for wine,
    // which has neither of the others and would take a serif font.
    return fontOf({"Microsoft Sans Serif", "Sans Serif", "DejaVu Sans"}, points);
}

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

QFont italic(QFont font)
{
    font.setItalic(true);
    return font;
}

static QPalette palette()
{
    QPalette palette(faceColour, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, lineColour);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
        palette.setColor(role, Qt::white);
    palette.setColor(QPalette::Highlight, lineColour);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, Qt::gray);
    return palette;
}

static QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 128})
        icon.addFile(QStringLiteral(":/icons/tessaline-%1.png").arg(size));
    return icon;
}

void applyLook(QApplication &app)
{
    loadImages();
    QApplication::setStyle(new Style);
    QApplication::setPalette(palette());
    QApplication::setFont(verdana(12));
    QApplication::setWindowIcon(programIcon());
    // The main window alone ends the program.
    app.setQuitOnLastWindowClosed(false);
}

#include "help/manual_text.h"

#include "help/chapters.h"
#include "look/look.h"

#include <QFile>
#include <QImage>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

static constexpr int marginOfText = 16; // logical pixels

// Outside any class, as the macro demands.
static void loadManual()
{
    Q_INIT_RESOURCE(manual);
}

ManualText::ManualText(QWidget *parent)
    : QTextBrowser(parent)
{
    setAccessibleName("Text of the manual");
    QPalette colours = palette();
    colours.setColor(QPalette::Link, lineColour);
    setPalette(colours);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // one that comes only then would have it read twice
    loadManual();
}

static void nameHeading(QTextCursor heading)
{
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorNames({anchorOf(heading.block().text())});
    heading.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    heading.mergeCharFormat(format);
}

// Names the headings, and sets paragraphs apart as a book does.
static void layOut(QTextDocument &document)
{
    QTextCursor all(&document);
    all.beginEditBlock(); // the places are worked out once, at its end
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        const bool isHeading = block.blockFormat().headingLevel() > 0;
        if (isHeading)
            nameHeading(cursor);
        if (cursor.currentTable())
            continue;
        QTextBlockFormat format;
        format.setTopMargin(isHeading ? 22 : 4);
        format.setBottomMargin(block.textList() ? 2 : 6);
        cursor.mergeBlockFormat(format);
    }
    all.endEditBlock();
}

// The place stays, as nearly as the new width has it.
void ManualText::read()
{
    QFile file(":/manual/manual.md");
    if (!file.open(QIODevice::ReadOnly))
        return;
    const int caret = textCursor().position();
    const double place = verticalScrollBar()->value() / qMax(1.0, double(verticalScrollBar()->maximum()));
    widthRead_ = viewport()->width();
    auto *text = new QTextDocument(this); // until it is shown, its places are not worked out
    text->setDefaultFont(font());
    text->setDocumentMargin(marginOfText);
    text->setMarkdown(QString::fromUtf8(file.readAll()));
    layOut(*text);
    const QPointer<QTextDocument> before = document();
    setDocument(text);
    delete before; // where that has not gone by itself, as the first one does
    QTextCursor cursor = textCursor();
    cursor.setPosition(qMin(caret, document()->characterCount() - 1));
    setTextCursor(cursor);
    verticalScrollBar()->setValue(qRound(place * verticalScrollBar()->maximum()));
}

void ManualText::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    if (viewport()->width() != widthRead_)
        read();
}

void ManualText::showHeading(const QString &anchor)
{
    QTextBlock block = document()->begin();
    while (block.isValid() && (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor))
        block = block.next();
    setTextCursor(QTextCursor(block.isValid() ? block : document()->begin()));
    scrollToAnchor(block.isValid() ? anchor : QString());
}

bool ManualText::findOn(const QString &words)
{
    if (find(words))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(QTextCursor::Start);
    if (find(words))
        return true;
    setTextCursor(before);
    return false;
}

QVariant ManualText::loadResource(int type, const QUrl &name)
{
    if (type != QTextDocument::ImageResource)
        return QTextBrowser::loadResource(type, name);
    QImage image(":/manual/" + name.path());
    const double ratio = devicePixelRatioF();
    const int room = viewport()->width() - 2 * marginOfText;
    if (room > 0 && image.width() > room) {
        image = image.scaledToWidth(qMin(image.width(), qRound(room * ratio)), Qt::SmoothTransformation);
        image.setDevicePixelRatio(qMax(1.0, double(image.width()) / room));
    }
    return image;
}

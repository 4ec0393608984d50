#include "songs/set_list.h"

#include "files/platform.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextLayout>

#include <numeric>

namespace
{
// All sizes are in points; they are such that twenty songs stand on a page.
constexpr double margin = 40;
constexpr double headingSize = 20;
constexpr double titleSize = 16;
constexpr double authorSize = 10.5;
constexpr double placeWidth = 40;
constexpr double numberWidth = 55;
constexpr double gap = 10;
constexpr double betweenSongs = 4.5;

// Text at a width, on as many lines as it takes.
struct Paragraph {
    QString text;
    double size = titleSize;
    double left = 0;
    double width = 0;
    Qt::Alignment alignment = Qt::AlignLeft;
};

// The pages, filled from above to below.
class Pages
{
public:
    explicit Pages(QPdfWriter &writer)
        : writer_(writer)
        , painter_(&writer)
        , point_(writer.resolution() / 72.0)
    {
    }

    double width() const { return writer_.width() / point_; }

    // Puts the rows below each other, their paragraphs side by side; on a new page where there is no room
    // for all of them.
    void add(const QList<QList<Paragraph>> &rows)
    {
        QList<double> heights;
        for (const QList<Paragraph> &row : rows) {
            double height = 0;
            for (const Paragraph &paragraph : row)
                height = qMax(height, put(paragraph, nullptr));
            heights += height;
        }
        const double height = std::accumulate(heights.begin(), heights.end(), 0.0);
        if (y_ > 0 && y_ + height > writer_.height()) {
            writer_.newPage();
            y_ = 0;
        }
        for (qsizetype i = 0; i < rows.size(); i += 1) {
            for (const Paragraph &paragraph : rows[i])
                put(paragraph, &painter_);
            y_ += heights[i];
        }
    }
    void addSpace(double points) { y_ += points * point_; }

private:
    // Draws it where there is a painter, and returns its height.
    double put(const Paragraph &paragraph, QPainter *painter)
    {
        QFont font(QStringList{"Verdana", "DejaVu Sans"});
        font.setPointSizeF(paragraph.size);
        QTextLayout layout(paragraph.text, font, &writer_);
        QTextOption option(paragraph.alignment);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        double height = 0;
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(paragraph.width * point_);
            line.setPosition({0, height});
            height += line.height();
        }
        layout.endLayout();
        if (painter)
            layout.draw(painter, {paragraph.left * point_, y_});
        return height;
    }

    QPdfWriter &writer_;
    QPainter painter_;
    const double point_; // in the writer's units
    double y_ = 0; // in the writer's units
};
} // namespace

static void addSong(Pages &pages, qsizetype place, int n)
{
    const bool isKnown = n >= 1 && n <= Module1.recCount;
    const auto entry = static_cast<size_t>(isKnown ? n : 0);
    const QString &written = Module1.recTitle[entry];
    const QString title = !isKnown ? "(not in the archive)" : written.isEmpty() ? "(without title)" : written;
    const double left = placeWidth + gap;
    const double numberLeft = pages.width() - numberWidth;
    const double textWidth = numberLeft - gap - left;
    QList<QList<Paragraph>> rows{{{QString::number(place), titleSize, 0, placeWidth, Qt::AlignRight},
                                  {title, titleSize, left, textWidth},
                                  {QString::number(n), titleSize, numberLeft, numberWidth, Qt::AlignRight}}};
    if (!Module1.recAuthor[entry].isEmpty())
        rows += {{Module1.recAuthor[entry], authorSize, left, textWidth}};
    pages.add(rows);
    pages.addSpace(betweenSongs);
}

QByteArray setListPdf(const SongsOnDisk::Playlist &playlist)
{
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    writer.setTitle(playlist.name);
    writer.setCreator("Tessaline");
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(margin, margin, margin, margin), QPageLayout::Point));
    {
        Pages pages(writer);
        pages.add({{{playlist.name, headingSize, 0, pages.width()}}});
        pages.addSpace(gap);
        for (qsizetype i = 0; i < playlist.songs.size(); i += 1)
            addSong(pages, i + 1, playlist.songs[i]);
    }
    return pdf.data();
}

QString setListName(const QString &playlist)
{
    QString name;
    for (const QChar character : playlist)
        name += QStringView(u"/\\:*?\"<>|").contains(character) ? QChar(u'-') : character;
    name = name.left(100).trimmed();
    return name + (isForbiddenName(name + ".pdf") ? "-.pdf" : ".pdf"); // to Windows, "con" is a device
}

#include "intake/contents.h"

#include "format/code_page.h"
#include "format/typed_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

static QString textOf(const QByteArray &csv)
{
    const auto encoding = QStringConverter::encodingForData(csv);
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    QString text = decoder(csv);
    return decoder.hasError() && !encoding ? fromCodePage(csv) : text;
}

// The one that stands most often in the first line, outside quotes.
static QChar separatorOf(const QString &text)
{
    bool isQuoted = false;
    int commas = 0, semicolons = 0, tabs = 0;
    for (const QChar each : text) {
        isQuoted ^= each == u'"';
        if (!isQuoted && (each == u'\n' || each == u'\r') && commas + semicolons + tabs > 0)
            break;
        commas += !isQuoted && each == u',';
        semicolons += !isQuoted && each == u';';
        tabs += !isQuoted && each == u'\t';
    }
    if (tabs >= qMax(1, qMax(commas, semicolons)))
        return u'\t';
    return semicolons >= qMax(1, commas) ? u';' : u',';
}

namespace
{
struct CsvRow {
    int line = 0; // on which it begins, from 1
    QStringList cells;
};

// Takes the rows from a text, one after the other.
class CsvReader
{
public:
    explicit CsvReader(const QString &text)
        : text_(text)
        , separator_(separatorOf(text))
    {
    }

    std::optional<CsvRow> next();

private:
    bool isAt(QChar each) const { return place_ < text_.size() && text_[place_] == each; }
    QString quotedPart();
    QString cell();

    const QString text_;
    const QChar separator_;
    qsizetype place_ = 0;
    int line_ = 1;
};
} // namespace

// From behind the opening quote to behind the closing one; two quotes are one. One that is never closed ends
// with its line, so that it does not swallow the songs behind it.
QString CsvReader::quotedPart()
{
    QString part;
    qsizetype end = place_;
    while (true) {
        end = text_.indexOf(u'"', end);
        if (end < 0)
            break;
        if (end + 1 >= text_.size() || text_[end + 1] != u'"')
            break;
        end += 2;
    }
    if (end < 0) {
        while (place_ < text_.size() && text_[place_] != u'\n' && text_[place_] != u'\r')
            part += text_[place_++];
        return part;
    }
    part = text_.sliced(place_, end - place_).replace("\"\"", "\"");
    line_ += static_cast<int>(part.count(u'\n'));
    place_ = end + 1;
    return part;
}

QString CsvReader::cell()
{
    QString cell;
    while (isAt(u' '))
        place_ += 1;
    if (isAt(u'"')) {
        place_ += 1;
        cell = quotedPart();
    }
    while (place_ < text_.size() && text_[place_] != separator_ && text_[place_] != u'\n'
           && text_[place_] != u'\r')
        cell += text_[place_++];
    return cell.simplified();
}

std::optional<CsvRow> CsvReader::next()
{
    if (place_ >= text_.size())
        return {};
    CsvRow row{line_, {cell()}};
    while (isAt(separator_)) {
        place_ += 1;
        row.cells += cell();
    }
    if (isAt(u'\r'))
        place_ += 1;
    if (isAt(u'\n') || (place_ > 0 && place_ <= text_.size() && text_[place_ - 1] == u'\r')) {
        place_ += isAt(u'\n') ? 1 : 0;
        line_ += 1;
    }
    return row;
}

// What is wrong with a row; empty if nothing is.
static QString troubleOf(const CsvRow &row, bool isNumber, int page, int pagesOfBook)
{
    if (row.cells[0].isEmpty())
        return "there is no title";
    if (row.cells.size() < 2 || row.cells[1].isEmpty())
        return QStringLiteral("\"%1\" has no page").arg(row.cells[0]);
    if (!isNumber)
        return QStringLiteral("\"%1\" is no page of \"%2\"").arg(row.cells[1], row.cells[0]);
    if (page < 1 || page > pagesOfBook)
        return QStringLiteral("\"%1\" begins on page %2, and the book has the pages 1 to %3")
            .arg(row.cells[0])
            .arg(page)
            .arg(pagesOfBook);
    return {};
}

static void setLastPages(QList<ContentsSong> &songs, int pagesOfBook)
{
    for (qsizetype i = 0; i < songs.size(); i += 1) {
        const int next = i + 1 < songs.size() ? songs[i + 1].firstPage : pagesOfBook + 1;
        songs[i].lastPage = qMax(songs[i].firstPage, next - 1);
    }
}

Contents contentsOf(const QByteArray &csv, int offset, int pagesOfBook)
{
    Contents contents;
    CsvReader rows(textOf(csv));
    bool isFirst = true;
    while (const auto row = rows.next()) {
        if (std::all_of(row->cells.begin(), row->cells.end(),
                        [](const QString &each) { return each.isEmpty(); }))
            continue;
        bool isNumber = false;
        const int page = row->cells.value(1).toInt(&isNumber) + offset;
        const bool isHeading = std::exchange(isFirst, false) && !isNumber && row->cells.size() > 1;
        if (isHeading)
            continue;
        const QString trouble = troubleOf(*row, isNumber, page, pagesOfBook);
        if (trouble.isEmpty())
            contents.songs +=
                {carriedByFiles(row->cells[0]).text, carriedByFiles(row->cells.value(2)).text, page, 0};
        else
            contents.troubles += QStringLiteral("Line %1: %2").arg(row->line).arg(trouble);
    }
    std::stable_sort(contents.songs.begin(), contents.songs.end(),
                     [](const auto &one, const auto &other) { return one.firstPage < other.firstPage; });
    setLastPages(contents.songs, pagesOfBook);
    return contents;
}

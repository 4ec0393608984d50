#include "stand/own_names.h"

#include "files/data_folder.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>

using Expression = QRegularExpression;

static const QString audio = "audio/";

static QStringList fixedNames()
{
    QStringList names;
    for (const QString &path : {archivePath(), categoriesPath(), playlistPath(), midiPath(), csvPath(),
                                emptyPagePath(), recordingsFolder()})
        names += QFileInfo(path).fileName();
    return names;
}

bool isOwnName(const QString &name)
{
    if (name.startsWith(audio))
        return recordOfRecording(QStringView(name).sliced(audio.size())) > 0;
    static const QStringList fixed = fixedNames();
    return pageOfName(name) || fixed.contains(name);
}

int songOfName(const QString &name)
{
    if (!isOwnName(name))
        return 0;
    const auto page = pageOfName(name);
    return page ? page->record : recordOfRecording(name.section('/', -1));
}

// What the name would be in the case and with the number that the archive's names have.
static QString inOwnForm(const QString &name)
{
    static const Expression page("^0*([1-9]\\d*)([lr])\\.jpg$", Expression::CaseInsensitiveOption);
    static const Expression recording("^audio/0*([1-9]\\d*)\\.mp3$", Expression::CaseInsensitiveOption);
    if (const auto parts = page.match(name); parts.hasMatch())
        return parts.captured(1) + parts.captured(2).toUpper() + ".jpg";
    if (const auto parts = recording.match(name); parts.hasMatch())
        return audio + parts.captured(1) + ".mp3";
    for (const QString &fixed : fixedNames()) {
        if (fixed.compare(name, Qt::CaseInsensitive) == 0)
            return fixed;
    }
    return {};
}

QString rightNameOf(const QString &name)
{
    const QString right = inOwnForm(name);
    return right != name && isOwnName(right) ? right : QString();
}

// Capital, small or digit.
static int kindOf(QChar letter)
{
    return letter.isDigit() ? 0 : letter.isLower() ? 1 : 2;
}

// "Backup", "old", "2024", "Copy" followed by digits: what people write changes its kind of letter once or
// twice, at a place that makes sense; what was drawn by lot nearly always changes more often, or in between.
static bool isDrawnByLot(QStringView letters)
{
    int changes = 0;
    for (qsizetype i = 1; i < letters.size(); i += 1)
        changes += kindOf(letters[i]) != kindOf(letters[i - 1]) ? 1 : 0;
    static const Expression word("^[A-Z]?[a-z]*\\d*$|^[A-Z]*\\d*$|^\\d*[A-Z]?[a-z]*$");
    return changes >= 2 && !word.match(letters.toString()).hasMatch();
}

bool isLeftOver(const QString &name)
{
    static const Expression ending("^(.+)\\.([A-Za-z0-9]{6})$");
    if (name.size() < 7 || name[name.size() - 7] != '.')
        return false; // nearly always, and sooner
    const auto parts = ending.match(name);
    return parts.hasMatch() && isOwnName(parts.captured(1)) && isDrawnByLot(parts.capturedView(2));
}

bool isOldPage(const QString &name)
{
    static const Expression old("^(\\d+[LR]) \\(old \\d+\\)\\.jpg$");
    const auto parts = old.match(name);
    return parts.hasMatch() && pageOfName(QString(parts.captured(1) + ".jpg")).has_value();
}

#include "intake/song_name.h"

#include "format/typed_text.h"

#include <QRegularExpression>

static QString withoutNumber(const QString &name)
{
    static const QRegularExpression number(R"(^\d+(?:\s*[.\-)\]:]\s*|\s+)(?=\S))");
    QString rest = name;
    return rest.remove(number);
}

SongName songNameOf(const QString &name, NamesAre namesAre, bool leaveOutNumbers)
{
    static const QRegularExpression dash(R"(\s[-\x{2013}\x{2014}]\s)");
    QString text = QString(name).replace(u'_', u' ').simplified();
    if (leaveOutNumbers)
        text = withoutNumber(text);
    text = carriedByFiles(text).text;
    if (namesAre == NamesAre::Title)
        return {text, {}};
    const QRegularExpressionMatch found = dash.match(text);
    if (!found.hasMatch())
        return {text, {}};
    const QString first = text.first(found.capturedStart()).trimmed();
    const QString second = text.sliced(found.capturedEnd()).trimmed();
    return namesAre == NamesAre::AuthorTitle ? SongName{second, first} : SongName{first, second};
}

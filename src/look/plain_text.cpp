#include "look/plain_text.h"

#include <QTextDocument>

QString shownAmpersands(QString text)
{
    return text.replace(QLatin1Char('&'), "&&");
}

QString plainToolTip(const QString &text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

#include "intake/pdf.h"

#include <QRegularExpression>

#include <cmath>

using Kind = Result::Kind;

static Result noPages(const QString &file, const QString &reason)
{
    return Result::failed(Kind::Unreadable, file, reason);
}

Result resultOf(const Jobs::Outcome &outcome, const QString &file)
{
    switch (outcome.end) {
    case Jobs::End::Done:
        return {};
    case Jobs::End::NoSuchProgram:
        return noPages(file, "PDF needs poppler-utils");
    case Jobs::End::TookTooLong:
        return noPages(file, "it takes too long to be made into a page");
    case Jobs::End::Stopped:
        return Result::failed(Kind::Cancelled, file, "it was cancelled");
    case Jobs::End::Failed:
        break;
    }
    if (outcome.errors.contains("the last page (0)"))
        return noPages(file, "it has no pages");
    const bool isLocked = outcome.errors.contains("Incorrect password");
    return noPages(file, isLocked ? "it is locked with a password" : "it is broken, or no PDF");
}

// So many that the page has 25 million pixels at most; on A4, 200 dots per inch give 4 million.
static int dotsPerInch(double width, double height)
{
    static constexpr double usual = 200, mostPixels = 25'000'000, pointsPerInch = 72;
    const double area = qMax(1.0, width / pointsPerInch) * qMax(1.0, height / pointsPerInch);
    return qMax(1, static_cast<int>(qMin(usual, std::sqrt(mostPixels / area))));
}

static PdfInfo infoOf(const Jobs::Outcome &outcome, const QString &file)
{
    static const QRegularExpression pageSize(R"(^Page\s+\d+ size:\s+([\d.]+) x ([\d.]+) pts)",
                                             QRegularExpression::MultilineOption);
    PdfInfo info{resultOf(outcome, file), {}};
    if (!info.result.ok())
        return info;
    const QString text = QString::fromUtf8(outcome.output);
    for (const auto &page : pageSize.globalMatch(text))
        info.dpi += dotsPerInch(page.captured(1).toDouble(), page.captured(2).toDouble());
    if (info.dpi.isEmpty())
        info.result = noPages(file, "it has no pages");
    return info;
}

QHash<QString, PdfInfo> readPdfs(const QStringList &files, const Progress &progress)
{
    QHash<QString, PdfInfo> infos;
    Jobs jobs(20);
    for (const QString &file : files)
        jobs.add({"pdfinfo", {"-f", "1", "-l", "-1", file}});
    for (qsizetype i = 0; i < files.size(); i += 1) {
        const auto goOn = [&] {
            return !progress || progress(static_cast<int>(i), static_cast<int>(files.size()));
        };
        const Jobs::Outcome outcome =
            goOn() ? jobs.take(static_cast<size_t>(i), goOn) : Jobs::Outcome{Jobs::End::Stopped, {}, {}};
        if (outcome.end == Jobs::End::Stopped)
            break;
        infos.insert(files[i], infoOf(outcome, files[i]));
    }
    return infos;
}

Jobs::Job pageJob(const QString &file, int first, int last, int dpi, bool isRaw)
{
    QStringList arguments{
        "-q", "-f", QString::number(first), "-l", QString::number(last), "-r", QString::number(dpi)};
    if (!isRaw)
        arguments += {"-jpeg", "-jpegopt", "quality=92"};
    return {"pdftoppm", arguments + QStringList(file)};
}

// "P6 width height 255", each behind a line end or a blank, and three bytes for each pixel.
static qsizetype sizeOfPixels(const QByteArray &output)
{
    static const QRegularExpression head(R"(^P6\s+(\d+)\s+(\d+)\s+255\s)");
    const QRegularExpressionMatch found =
        head.match(QString::fromLatin1(output.first(qMin(40, output.size()))));
    return found.hasMatch()
        ? found.capturedLength() + found.captured(1).toLongLong() * found.captured(2).toLongLong() * 3
        : 0;
}

QByteArray takePicture(QByteArray &output)
{
    const bool isJpeg = output.startsWith("\xFF\xD8");
    const qsizetype size = isJpeg ? output.indexOf("\xFF\xD9") + 2 : sizeOfPixels(output);
    if (size < 4 || size > output.size())
        return {};
    const QByteArray picture = output.first(size);
    output.remove(0, size);
    return picture;
}

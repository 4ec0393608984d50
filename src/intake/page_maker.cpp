#include "intake/page_maker.h"

#include "intake/page_picture.h"
#include "intake/pdf.h"

static Result makePicturePage(const ComingPage &page, QByteArray &bytes)
{
    QImage picture;
    if (const Result read = readPicture(page.file, picture); !read.ok())
        return read;
    return encodePage(shaped(std::move(picture), page), page.file, bytes);
}

NewFile PageMaker::fileOf(const ComingPage &page)
{
    if (!page.exists())
        return {};
    if (page.pdfPage > 0) {
        const size_t place = jobFor(page);
        return {{}, [this, place, page](QByteArray &bytes) { return makePdfPage(place, page, bytes); }};
    }
    const PictureHead head = headOf(page.file);
    if (!head.result.ok())
        return {{}, [head](QByteArray &) { return head.result; }};
    if (head.isJpeg && page.isAsItWas())
        return {page.file, {}};
    return {{}, [page](QByteArray &bytes) { return makePicturePage(page, bytes); }};
}

// Two pages that follow each other are one run of the program.
size_t PageMaker::jobFor(const ComingPage &page)
{
    const bool isRaw = !page.isAsItWas();
    PdfJob *last = pdfJobs_.empty() ? nullptr : &pdfJobs_.back();
    if (last && last->file == page.file && last->dpi == page.dpi && last->isRaw == isRaw
        && last->first == last->last && last->last + 1 == page.pdfPage)
        last->last += 1;
    else
        pdfJobs_.push_back({page.file, page.pdfPage, page.pdfPage, page.dpi, isRaw, false, {}});
    return pdfJobs_.size() - 1;
}

void PageMaker::addJobs()
{
    for (; added_ < pdfJobs_.size(); added_ += 1) {
        const PdfJob &job = pdfJobs_[added_];
        jobs_.add(pageJob(job.file, job.first, job.last, job.dpi, job.isRaw));
    }
}

Result PageMaker::makePdfPage(size_t place, const ComingPage &page, QByteArray &bytes)
{
    addJobs();
    PdfJob &job = pdfJobs_[place];
    if (!std::exchange(job.isTaken, true))
        job.outcome = jobs_.take(place, goOn_);
    if (const Result made = resultOf(job.outcome, page.file); !made.ok())
        return made;
    bytes = takePicture(job.outcome.output);
    if (bytes.isEmpty())
        return Result::failed(Result::Kind::Unreadable, page.file,
                              QStringLiteral("its page %1 cannot be made").arg(page.pdfPage));
    if (!job.isRaw)
        return {};
    QImage picture;
    if (const Result read = readPicture(bytes, page.file, picture); !read.ok())
        return read;
    bytes.clear();
    return encodePage(shaped(std::move(picture), page), page.file, bytes);
}

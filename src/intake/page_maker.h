#pragma once

#include "archive/append_songs.h"
#include "intake/coming_song.h"
#include "intake/jobs.h"

#include <map>

// Makes the pages of songs that are brought in, in the order in which they were asked for; those of PDFs by
// programs that run ahead.
class PageMaker
{
public:
    // While a program is waited for, `goOn` is asked whether to wait on.
    explicit PageMaker(std::function<bool()> goOn)
        : goOn_(std::move(goOn))
    {
    }

    // What gives the page its bytes; it lives no longer than this object.
    NewFile fileOf(const ComingPage &page);

private:
    // What runs for pages of a PDF that follow each other.
    struct PdfJob {
        QString file;
        int first = 0;
        int last = 0;
        int dpi = 0;
        bool isRaw = false;
        bool isTaken = false;
        Jobs::Outcome outcome;
    };

    size_t jobFor(const ComingPage &page);
    void addJobs();
    Result makePdfPage(size_t place, const ComingPage &page, QByteArray &bytes);

    const std::function<bool()> goOn_;
    Jobs jobs_;
    std::vector<PdfJob> pdfJobs_;
    size_t added_ = 0; // how many of them jobs_ knows
};

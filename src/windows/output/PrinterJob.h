// A document on its way to a printer.
#pragma once

#include "windows/com/PlainWindows.h"

#include "widgets/Output.h"
#include "windows/gdi/PagePainter.h"
#include "windows/output/WaitCursor.h"

namespace dlv {

/// Numbers of pages from 1, both ends included.
struct PageRange {
    int first = 1;
    int last = 0x7FFFFFFF;
};

class PrinterJob : public Printer {
public:
    /// Takes the printer's device context over; error 482 when there is none.
    PrinterJob(HDC printer, PageRange range, const FontChoice& font);
    ~PrinterJob() override;
    PrinterJob(const PrinterJob&) = delete;
    PrinterJob& operator=(const PrinterJob&) = delete;

    dlv::Paper Paper() const override;
    bool Wants(int page) const override { return page >= range_.first && page <= range_.last; }
    void Begin(const std::string& documentName) override;
    void Print(const PrintedPage& page) override;
    void End() override;

private:
    HDC dc_;
    PageRange range_;
    PagePainter painter_;
    bool open_ = false;
};

}  // namespace dlv

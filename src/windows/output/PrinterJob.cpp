#include "windows/output/PrinterJob.h"

#include "base/RunTimeError.h"
#include "windows/com/Strings.h"

namespace dlv {

namespace {

double Twips(HDC dc, int measure, int dotsPerInch) {
    return GetDeviceCaps(dc, measure) * double{kTwipsPerInch} / GetDeviceCaps(dc, dotsPerInch);
}

}  // namespace

PrinterJob::PrinterJob(HDC printer, PageRange range, const FontChoice& font)
    : dc_(printer), range_(range), painter_(font) {
    if (dc_ == nullptr) RaisePrinter();
}

PrinterJob::~PrinterJob() {
    if (open_) AbortDoc(dc_);
    DeleteDC(dc_);
}

dlv::Paper PrinterJob::Paper() const {
    if (GetDeviceCaps(dc_, LOGPIXELSX) <= 0 || GetDeviceCaps(dc_, LOGPIXELSY) <= 0) RaisePrinter();
    dlv::Paper paper;
    paper.width = Twips(dc_, PHYSICALWIDTH, LOGPIXELSX);
    paper.height = Twips(dc_, PHYSICALHEIGHT, LOGPIXELSY);
    paper.left = Twips(dc_, PHYSICALOFFSETX, LOGPIXELSX);
    paper.top = Twips(dc_, PHYSICALOFFSETY, LOGPIXELSY);
    paper.right = paper.width - paper.left - Twips(dc_, HORZRES, LOGPIXELSX);
    paper.bottom = paper.height - paper.top - Twips(dc_, VERTRES, LOGPIXELSY);
    return paper;
}

void PrinterJob::Begin(const std::string& documentName) {
    const std::wstring name = Wide(documentName);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    if (StartDocW(dc_, &document) <= 0) RaisePrinter();
    open_ = true;
}

void PrinterJob::Print(const PrintedPage& page) {
    const WaitCursor waiting;
    if (StartPage(dc_) <= 0) RaisePrinter();
    // A new page may forget how the one before was measured.
    MeasureInTwips(dc_, {GetDeviceCaps(dc_, LOGPIXELSX), GetDeviceCaps(dc_, LOGPIXELSY)},
                   {-GetDeviceCaps(dc_, PHYSICALOFFSETX), -GetDeviceCaps(dc_, PHYSICALOFFSETY)});
    painter_.Paint(dc_, page);
    if (EndPage(dc_) <= 0) RaisePrinter();
}

void PrinterJob::End() {
    if (EndDoc(dc_) <= 0) RaisePrinter();
    open_ = false;
}

}  // namespace dlv

// The control's picture, drawn for a container into any device context, with and without a window.
#include <algorithm>

#include "tests/windows/Support.h"

namespace dlv::test {
namespace {

/// What a metafile holds: how many records, and the texts among them.
struct Picture {
    int records = 0;
    std::vector<std::wstring> texts;
    bool Holds(const wchar_t* text) const {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
};

int CALLBACK NoteRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data) {
    auto& picture = *reinterpret_cast<Picture*>(data);
    ++picture.records;
    if (record->iType == EMR_EXTTEXTOUTW) {
        const auto* text = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
        const auto* start = reinterpret_cast<const char*>(record) + text->emrtext.offString;
        picture.texts.emplace_back(reinterpret_cast<const wchar_t*>(start), text->emrtext.nChars);
    }
    return 1;
}

Picture DrawIntoMetafile(_DLViewer* viewer, RECTL bounds) {
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(As<IViewObject>(viewer)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds,
                                            &bounds, nullptr, 0),
              S_OK);
    const HENHMETAFILE file = CloseEnhMetaFile(dc);
    Picture picture;
    EnumEnhMetaFile(nullptr, file, NoteRecord, &picture, nullptr);
    DeleteEnhMetaFile(file);
    return picture;
}

TEST(Drawing, NeedsNoWindow) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    EXPECT_GT(DrawIntoMetafile(viewer.Get(), {0, 0, 960, 640}).records, 2);
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    ASSERT_EQ(Receive(viewer.Get(), SampleMessage().Get()), S_OK);
    const Picture picture = DrawIntoMetafile(viewer.Get(), {0, 0, 960, 640});
    EXPECT_TRUE(picture.Holds(L"Business Units :")) << testing::PrintToString(picture.texts);
    EXPECT_TRUE(picture.Holds(L"Total"));
}

class DrawingAt : public testing::TestWithParam<RECTL> {};

TEST_P(DrawingAt, AnyPlaceStaysInsideIt) {
    const ComPtr<_DLViewer> viewer = New<_DLViewer>(L"DLViewer");
    ASSERT_EQ(Initialize(viewer.Get()), S_OK);
    constexpr LONG kSide = 400;
    constexpr DWORD kUntouched = 0x00123456;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = -kSide;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(bitmap, nullptr);
    auto* const pixels = static_cast<DWORD*>(bits);
    std::fill(pixels, pixels + kSide * kSide, kUntouched);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    RECTL bounds = GetParam();
    EXPECT_EQ(As<IViewObject>(viewer.Get())
                  ->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0),
              S_OK);
    GdiFlush();
    int inside = 0;
    int outside = 0;
    for (LONG y = 0; y < kSide; ++y)
        for (LONG x = 0; x < kSide; ++x) {
            const bool within = x >= bounds.left && x < bounds.right && y >= bounds.top && y < bounds.bottom;
            if ((pixels[y * kSide + x] & 0xFFFFFF) != kUntouched) ++(within ? inside : outside);
        }
    const LONG area = (bounds.right - bounds.left) * (bounds.bottom - bounds.top);
    EXPECT_EQ(inside, area);
    EXPECT_EQ(outside, 0);
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
}

INSTANTIATE_TEST_SUITE_P(Places, DrawingAt,
                         testing::Values(RECTL{0, 0, 400, 400}, RECTL{50, 60, 350, 260},
                                         RECTL{10, 10, 20, 390}, RECTL{100, 100, 101, 101}));

TEST(Drawing, OfAnotherAspectIsRefused) {
    const ComPtr<IViewObject> view = As<IViewObject>(New<_DLViewer>(L"DLViewer").Get());
    const RECTL bounds{0, 0, 10, 10};
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_TRUE(FAILED(
        view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr, 0)));
}

}  // namespace
}  // namespace dlv::test

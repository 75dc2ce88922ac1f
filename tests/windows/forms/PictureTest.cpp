#include <algorithm>

#include "control/Layout.h"
#include "tests/windows/forms/FormHost.h"
#include "views/GridPages.h"
#include "windows/gdi/ControlPainter.h"
#include "windows/gdi/FacePainter.h"
#include "windows/gdi/PagePainter.h"
#include "windows/gdi/PaintBuffer.h"

namespace dlv::test {
namespace {

constexpr COLORREF kCyan = RGB(0xC6, 0xFD, 0xFA);

struct PictureTest : testing::Test {
    PictureTest() {
        LayoutFrames(form, Pixels(1000), Pixels(600));
        FillGrid(form.vsFlex[0], 8);
    }

    /// Draws into a bitmap of twice the size at (100, 50) and gives the colour of a pixel of the picture.
    COLORREF PixelOf(const std::function<void(HDC, const RECT&)>& draw, POINT point) const {
        const WindowDc screen(nullptr);
        const MemoryDc memory(screen.Get());
        const Bitmap bitmap(CreateCompatibleBitmap(screen.Get(), 1200, 700));
        const SelectScope select(memory.Get(), bitmap.Get());
        {
            const SaveScope mapping(memory.Get());
            draw(memory.Get(), {100, 50, 1100, 650});
        }
        return GetPixel(memory.Get(), 100 + point.x, 50 + point.y);
    }

    /// A point on the ground of the grid's coloured header.
    POINT HeaderPoint() const {
        const Bounds inside = form.fraBU[0].Place();
        const Scale scale;
        return {scale.ToPixels(inside.left) + 160, scale.ToPixels(inside.top) + 3};
    }

    ViewerForm form;
};

TEST_F(PictureTest, StandsWhereItShould) {
    const auto draw = [&](HDC dc, const RECT& place) { DrawControl(dc, place, form, Zoom{Scale(96)}); };
    EXPECT_EQ(PixelOf(draw, HeaderPoint()), kCyan);
    EXPECT_EQ(PixelOf(draw, {3, 3}), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(PixelOf(draw, {-3, 3}), RGB(0, 0, 0)) << "drawn beyond its place";
}

TEST_F(PictureTest, FollowsTheMappingOfItsContext) {
    const auto halved = [&](HDC dc, const RECT&) {
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowExtEx(dc, 2, 2, nullptr);
        SetViewportExtEx(dc, 1, 1, nullptr);
        SetViewportOrgEx(dc, 100, 50, nullptr);
        DrawControl(dc, {0, 0, 2000, 1200}, form, Zoom{Scale(96)});
    };
    EXPECT_EQ(PixelOf(halved, HeaderPoint()), kCyan);
}

TEST_F(PictureTest, FillsItsPlaceAtAnyResolution) {
    for (const int dpi : {96, 120, 192}) {
        const auto draw = [&](HDC dc, const RECT& place) { DrawControl(dc, place, form, Zoom{Scale(dpi)}); };
        EXPECT_EQ(PixelOf(draw, HeaderPoint()), kCyan) << dpi;
    }
}

TEST_F(PictureTest, GoesIntoAMetafile) {
    const auto play = [&](HDC dc, const RECT& place) {
        const HDC record = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        DrawControl(record, {0, 0, 1000, 600}, form, Zoom{Scale(96)});
        const HENHMETAFILE file = CloseEnhMetaFile(record);
        ENHMETAHEADER header{};
        GetEnhMetaFileHeader(file, sizeof header, &header);
        EXPECT_GT(header.nRecords, 100u);
        // Played at the size of its bounds, a pixel of the picture is a pixel again.
        const RECTL& bounds = header.rclBounds;
        const RECT target{place.left + bounds.left, place.top + bounds.top, place.left + bounds.right + 1,
                          place.top + bounds.bottom + 1};
        PlayEnhMetaFile(dc, file, &target);
        DeleteEnhMetaFile(file);
    };
    const COLORREF pixel = PixelOf(play, HeaderPoint());
    EXPECT_NEAR(GetRValue(pixel), 0xC6, 2);
    EXPECT_NEAR(GetGValue(pixel), 0xFD, 2);
}

TEST_F(PictureTest, GoesIntoAnOldMetafileAsABitmap) {
    const HDC record = CreateMetaFileW(nullptr);
    SetMapMode(record, MM_ANISOTROPIC);
    SetWindowExtEx(record, 1000, 600, nullptr);
    DrawControl(record, {0, 0, 1000, 600}, form, Zoom{Scale(96)});
    const HMETAFILE file = CloseMetaFile(record);
    ASSERT_NE(file, nullptr);
    const auto play = [&](HDC dc, const RECT& place) {
        SetMapMode(dc, MM_ANISOTROPIC);
        SetViewportOrgEx(dc, place.left, place.top, nullptr);
        SetViewportExtEx(dc, 1000, 600, nullptr);
        PlayMetaFile(dc, file);
    };
    EXPECT_EQ(PixelOf(play, HeaderPoint()), kCyan);
    DeleteMetaFile(file);
}

TEST_F(PictureTest, MakesALineSmallerOnlyWhereAllOfItIsSeenThen) {
    const WindowDc screen(nullptr);
    const Look look(Appearance(), Scale(96));
    const Canvas canvas(screen.Get(), look);
    Label& name = form.lblCurrentProfile;
    std::string text = "m";
    const auto step = [&] {
        name.SetCaption(text);
        return LabelStep(canvas, name);
    };
    EXPECT_EQ(step(), 0);
    while (step() == 0 && text.size() < 200) text += "m";
    EXPECT_GT(step(), 0) << "a little too long";
    text += text;
    EXPECT_EQ(step(), 0) << "cut in any case";
}

/// A page of a printed grid, as a printer of that resolution would get it.
struct PrintedSheet {
    explicit PrintedSheet(const OutlineGrid& grid)
        : pages(grid, {.width = 16838, .height = 11906}, {"Title", "now", "Default", "%1", "%1 / %2"}) {}

    /// How much of the sheet is not white, and the colour of a point in twips.
    struct Seen {
        int inked = 0;
        COLORREF colour = 0;
    };
    Seen Drawn(SIZE dotsPerInch, POINT twips) const {
        const HDC record = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
        MeasureInTwips(record, dotsPerInch, {0, 0});
        PagePainter(DefaultFont()).Paint(record, pages.Page(1));
        const HENHMETAFILE file = CloseEnhMetaFile(record);
        ENHMETAHEADER header{};
        GetEnhMetaFileHeader(file, sizeof header, &header);
        const RECTL& drawn = header.rclBounds;
        const SIZE size{16838 * dotsPerInch.cx / 1440, 11906 * dotsPerInch.cy / 1440};
        EXPECT_GE(drawn.left, 1200 * dotsPerInch.cx / 1440 - 1);
        EXPECT_LE(drawn.right, (16838 - 1200) * dotsPerInch.cx / 1440 + 1);
        EXPECT_LE(drawn.bottom, size.cy);

        const WindowDc screen(nullptr);
        const MemoryDc memory(screen.Get());
        const Bitmap bitmap(CreateCompatibleBitmap(screen.Get(), size.cx, size.cy));
        const SelectScope select(memory.Get(), bitmap.Get());
        const RECT all{0, 0, size.cx, size.cy};
        FillRect(memory.Get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        const RECT place{drawn.left, drawn.top, drawn.right + 1, drawn.bottom + 1};
        PlayEnhMetaFile(memory.Get(), file, &place);
        DeleteEnhMetaFile(file);
        Seen seen;
        for (int x = 0; x < size.cx; x += 3)
            for (int y = 0; y < size.cy; y += 3)
                seen.inked += GetPixel(memory.Get(), x, y) != RGB(255, 255, 255);
        seen.colour =
            GetPixel(memory.Get(), twips.x * dotsPerInch.cx / 1440, twips.y * dotsPerInch.cy / 1440);
        return seen;
    }
    GridPages pages;
};

TEST_F(PictureTest, OfAPageStandsBetweenTheMarginsAtAnyResolution) {
    const PrintedSheet sheet(form.vsFlex[0]);
    const PrintedPage page = sheet.pages.Page(1);
    const auto cyan = std::ranges::find(page.areas, static_cast<Colour>(kCyan), &PrintedPage::Area::colour);
    ASSERT_NE(cyan, page.areas.end());
    const POINT ground{static_cast<LONG>(cyan->place.left + 60), static_cast<LONG>(cyan->place.top + 30)};
    for (const SIZE dots : {SIZE{96, 96}, SIZE{300, 300}, SIZE{200, 100}}) {
        const PrintedSheet::Seen seen = sheet.Drawn(dots, ground);
        EXPECT_EQ(seen.colour, kCyan) << dots.cx;
        EXPECT_GT(seen.inked, 1000) << dots.cx;
    }
}

struct ZoomCase {
    const char* name;
    double points;
    int dpi;
    SIZE room;
    int zoomedDpi;
    double zoomedPoints;
};

TEST(ZoomOfTheControl, FollowsTheFontAsFarAsThereIsRoom) {
    const ZoomCase cases[] = {
        {"design", 9, 96, {1000, 700}, 96, 9},
        {"a smaller font shrinks nothing", 8, 96, {1000, 700}, 96, 8},
        {"a larger one enlarges all", 13.5, 96, {1400, 760}, 144, 9},
        {"as far as it is wide", 13.5, 96, {1000, 760}, 112, 9},
        {"as far as it is high", 13.5, 96, {1400, 500}, 112, 9},
        {"in steps", 13.5, 96, {1010, 760}, 112, 9},
        {"never below the resolution", 18, 144, {600, 400}, 144, 9},
        {"at a higher resolution", 18, 144, {2600, 1300}, 288, 9},
        {"without any room", 18, 96, {0, 0}, 96, 9},
        {"a size that is none", 1e300, 96, {1712, 840}, 192, 9},
    };
    for (const ZoomCase& row : cases) {
        const Zoom zoom = ZoomFor(FontChoice{L"Tahoma", row.points}, row.dpi, row.room, kLeastControlSize);
        EXPECT_EQ(zoom.scale.Dpi(), row.zoomedDpi) << row.name;
        EXPECT_EQ(zoom.appearance.Font().points, row.zoomedPoints) << row.name;
    }
}

}  // namespace
}  // namespace dlv::test

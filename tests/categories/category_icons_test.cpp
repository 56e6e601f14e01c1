#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "categories/category_icons.h"
#include "categories/category_state.h"
#include "categories/dib_file.h"
#include "categories/letter_icon.h"
#include "settings/settings.h"
#include "tests/support/temp_root.h"

namespace velmo {
namespace {

namespace fs = std::filesystem;

constexpr COLORREF kRed = MakeRgb(255, 0, 0);
constexpr COLORREF kBlue = MakeRgb(0, 0, 255);
constexpr COLORREF kGreen = MakeRgb(0, 200, 0);

void Put16(std::string& out, unsigned v) {
  out += static_cast<char>(v & 0xFF);
  out += static_cast<char>((v >> 8) & 0xFF);
}
void Put32(std::string& out, std::uint32_t v) {
  Put16(out, v & 0xFFFF);
  Put16(out, v >> 16);
}

// A BMP file as a paint program writes it: bottom-up rows padded to four bytes,
// 24 bits per pixel, or 8 bits indexing a palette of the image's colours.
std::string EncodeBmp(const Bitmap& image, bool palette) {
  std::vector<COLORREF> colours;
  if (palette)
    for (COLORREF c : image.pixels)
      if (std::find(colours.begin(), colours.end(), c) == colours.end()) colours.push_back(c);
  const int bytes_per_pixel = palette ? 1 : 3;
  const int stride = (image.width * bytes_per_pixel + 3) / 4 * 4;
  const std::uint32_t offset = 14 + 40 + static_cast<std::uint32_t>(colours.size()) * 4;
  std::string out = "BM";
  Put32(out, offset + static_cast<std::uint32_t>(stride * image.height));
  Put32(out, 0);
  Put32(out, offset);
  Put32(out, 40);
  Put32(out, static_cast<std::uint32_t>(image.width));
  Put32(out, static_cast<std::uint32_t>(image.height));
  Put16(out, 1);
  Put16(out, palette ? 8 : 24);
  Put32(out, 0);  // no compression
  Put32(out, static_cast<std::uint32_t>(stride * image.height));
  Put32(out, 2835), Put32(out, 2835);
  Put32(out, static_cast<std::uint32_t>(colours.size())), Put32(out, 0);
  for (COLORREF c : colours) {
    out += static_cast<char>(BlueOf(c)), out += static_cast<char>(GreenOf(c));
    out += static_cast<char>(RedOf(c)), out += '\0';
  }
  for (int y = image.height - 1; y >= 0; --y) {
    std::string row;
    for (int x = 0; x < image.width; ++x) {
      const COLORREF c = image.at(x, y);
      if (palette) {
        row += static_cast<char>(std::find(colours.begin(), colours.end(), c) - colours.begin());
      } else {
        row += static_cast<char>(BlueOf(c)), row += static_cast<char>(GreenOf(c));
        row += static_cast<char>(RedOf(c));
      }
    }
    row.resize(static_cast<size_t>(stride), '\0');
    out += row;
  }
  return out;
}

// Left half red over blue, right half green; w by h.
Bitmap Quarters(int w, int h) {
  Bitmap image(w, h, kGreen);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w / 2; ++x) image.at(x, y) = y < h / 2 ? kRed : kBlue;
  return image;
}

class CategoryIcons : public testing::DeviceTest {
 protected:
  void SetUp() override { CurrentSettings().path = L"\\Program Files\\Velmo\\velmo.exe"; }
  void TearDown() override {
    CurrentSettings().path.clear();
    InitCategories(0, L"", L"");
  }
  fs::path Folder() const { return root() / "Program Files" / "Velmo"; }
  const CategoryImage* ImageOf(std::wstring_view name) {
    const CategoryList& catalogue = CategoryCatalogue();
    const int i = FindCategory(catalogue, name);
    return i < 0 ? nullptr : CategoryImages()->Get(catalogue.entries[static_cast<size_t>(i)].icon_index);
  }
  // Reloads every icon with a message-box stand-in that records what it shows.
  std::vector<std::wstring> ReloadReporting() {
    std::vector<std::wstring> shown;
    const IconReporter owner = [&](const std::wstring& caption, const std::wstring& text) {
      EXPECT_EQ(caption, L"Categories");
      shown.push_back(text);
    };
    ReloadCategoryIcons(&owner, [](const CategoryEntry&) { return true; });
    return shown;
  }
};

TEST(CategoryIconNames, FileNameAndFolderRules) {
  EXPECT_EQ(CategoryIconFileName(L"A/B?"), L"A_B_");
  EXPECT_EQ(CategoryIconFileName(L"\\/:*?\"<>|x"), L"_________x");
  EXPECT_EQ(CategoryIconFileName(L""), L"~NoCategory");
  EXPECT_EQ(CategoryIconFileName(L"Büro 2.0"), L"Büro 2.0");

  velmo::testing::TempRoot root;
  struct Case { const wchar_t* path; const wchar_t* shown; fs::path directory; } cases[] = {
      {L"\\Program Files\\Velmo\\velmo.exe", L"\\Program Files\\Velmo\\", root.path() / "Program Files/Velmo/"},
      {L"/opt/velmo/bin/velmo-todo", L"/opt/velmo/bin/", "/opt/velmo/bin/"},
      {L"velmo.exe", L"", root.path() / ""},
  };
  for (const Case& c : cases) {
    const IconFolder folder = CategoryIconFolder(c.path);
    EXPECT_EQ(folder.shown, c.shown);
    EXPECT_EQ(fs::weakly_canonical(folder.directory), fs::weakly_canonical(c.directory)) << c.path;
  }
}

TEST_F(CategoryIcons, LoadsBothBitDepthsAsWritten) {
  const Bitmap image = Quarters(6, 4);
  for (bool palette : {false, true}) {
    const fs::path file = Folder() / (palette ? "p.bmp" : "t.bmp");
    testing::WriteFileBytes(file, EncodeBmp(image, palette));
    Bitmap loaded;
    ASSERT_EQ(LoadDibFile(file, &loaded), ERROR_SUCCESS) << palette;
    EXPECT_EQ(loaded.width, 6);
    EXPECT_EQ(loaded.height, 4);
    EXPECT_EQ(loaded.pixels, image.pixels) << "palette " << palette;
  }
  Bitmap unused;
  EXPECT_EQ(LoadDibFile(Folder() / "missing.bmp", &unused), DWORD{ERROR_FILE_NOT_FOUND});
  testing::WriteFileBytes(Folder() / "text.bmp", "not a bitmap at all");
  EXPECT_EQ(LoadDibFile(Folder() / "text.bmp", &unused), DWORD{ERROR_BAD_FORMAT});
  std::string cut = EncodeBmp(image, false);
  cut.resize(30);
  testing::WriteFileBytes(Folder() / "cut.bmp", cut);
  EXPECT_EQ(LoadDibFile(Folder() / "cut.bmp", &unused), DWORD{ERROR_BAD_FORMAT});
}

TEST(FitBitmap, CropsLargeAndCentresSmall) {
  Rect placed;
  const Bitmap large = Quarters(20, 18);
  const Bitmap cropped = FitBitmap(large, 16, 16, kIconKeyColor, &placed);
  EXPECT_EQ(placed, (Rect{0, 0, 16, 16}));
  EXPECT_EQ(cropped.at(0, 0), kRed);
  EXPECT_EQ(cropped.at(9, 15), kBlue);   // row 15 is below the source's middle (9)
  EXPECT_EQ(cropped.at(10, 0), kGreen);  // column 10 is right of the source's middle
  EXPECT_EQ(cropped.at(15, 15), kGreen);

  const Bitmap centred = FitBitmap(Quarters(5, 3), 16, 16, kIconKeyColor, &placed);
  EXPECT_EQ(placed, (Rect{5, 6, 10, 9}));  // (16 - 5) / 2, (16 - 3) / 2
  EXPECT_EQ(centred.at(4, 6), kIconKeyColor);
  EXPECT_EQ(centred.at(5, 6), kRed);
  EXPECT_EQ(centred.at(9, 8), kGreen);
  EXPECT_EQ(centred.at(10, 8), kIconKeyColor);

  // Wider but lower than the target: centred, its sides cut off.
  const Bitmap wide = FitBitmap(Quarters(20, 4), 16, 16, kIconKeyColor, &placed);
  EXPECT_EQ(placed, (Rect{-2, 6, 18, 10}));
  EXPECT_EQ(wide.at(0, 6), kRed);
  EXPECT_EQ(wide.at(0, 5), kIconKeyColor);
}

TEST_F(CategoryIcons, BitmapFilesBecomeFittedIconsAndHalfBlockCells) {
  testing::WriteFileBytes(Folder() / "A_B_.bmp", EncodeBmp(Quarters(16, 16), false));
  testing::WriteFileBytes(Folder() / "~NoCategory.bmp", EncodeBmp(Quarters(8, 8), true));
  testing::WriteFileBytes(Folder() / "work.BMP", EncodeBmp(Bitmap(2, 2, kBlue), true));
  InitCategories(0, L"", L"");
  AddCategory(CategoryCatalogue(), L"A/B?", InLoadedTasks, kAddCategoryMerge);
  AddCategory(CategoryCatalogue(), L"Work", InLoadedTasks, kAddCategoryMerge);
  EXPECT_TRUE(IconFolderHasBitmaps());
  EXPECT_TRUE(NoCategoryBitmapLoaded());

  const CategoryImage* ab = ImageOf(L"A/B?");
  ASSERT_NE(ab, nullptr);
  EXPECT_EQ(ab->letter, 0);
  EXPECT_EQ(ab->cells[0], (IconCell{kUpperHalfBlock, kRed, kBlue}));
  EXPECT_EQ(ab->cells[1], (IconCell{kUpperHalfBlock, kGreen, kGreen}));

  // 8x8 centred in 16x16: each quarter of the icon is a quarter covered, so
  // every block is transparent.
  const CategoryImage* none = ImageOf(L"");
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(none->pixels.at(4, 4), kRed);
  EXPECT_EQ(none->pixels.at(3, 4), kIconKeyColor);
  EXPECT_EQ(none->cells[0], IconCell{});

  const CategoryImage* work = ImageOf(L"Work");  // found as "work.BMP"
  ASSERT_NE(work, nullptr);
  EXPECT_EQ(work->letter, 0);
  EXPECT_EQ(work->pixels.at(7, 7), kBlue);
}

TEST_F(CategoryIcons, CategoriesWithoutAFileGetALetterNoCategoryNothing) {
  InitCategories(0, L"", L"");  // the folder does not even exist
  const int i = AddCategory(CategoryCatalogue(), L"work", 0, kAddCategoryFindIndex);
  AddCategory(CategoryCatalogue(), L"\u65e5\u672c", 0, kAddCategoryMerge);
  AddCategory(CategoryCatalogue(), L"\u0301x", 0, kAddCategoryMerge);
  EXPECT_FALSE(IconFolderHasBitmaps());
  const CategoryEntry& entry = CategoryCatalogue().entries[static_cast<size_t>(i)];
  EXPECT_TRUE(entry.letter_icon);
  const CategoryImage* icon = ImageOf(L"work");
  ASSERT_NE(icon, nullptr);
  EXPECT_EQ(icon->letter, L'w');
  EXPECT_EQ(icon->letter_box, (Rect{2, 2, 14, 14}));  // the 12-pixel tile, centred
  EXPECT_EQ(icon->pixels.at(1, 1), kIconKeyColor);
  EXPECT_EQ(icon->cells[0].glyph, L'w');
  EXPECT_EQ(icon->cells[0].foreground, kLetterInk);
  EXPECT_FALSE(icon->cells[1].continuation);
  EXPECT_TRUE(ImageOf(L"\u65e5\u672c")->cells[1].continuation);  // a wide letter takes both cells
  EXPECT_EQ(ImageOf(L"\u0301x")->cells[0].glyph, L'?');          // a lone combining mark
  EXPECT_EQ(CategoryCatalogue().entries[0].icon_index, -1);
  EXPECT_EQ(CategoryCells(CategoryCatalogue().entries[0]), nullptr);
  EXPECT_FALSE(CategoryCatalogue().entries[0].letter_icon);
}

TEST_F(CategoryIcons, NotFoundAndShouldBeAddedAreShownOncePerPass) {
  InitCategories(0, L"", L"");
  ParseCategories(CategoryCatalogue(), L"a,b,c", InLoadedTasks, false);
  EXPECT_EQ(ReloadReporting(),
            std::vector<std::wstring>{
                L"Icons (CategoryName.bmp) should be added in:\r\n\\Program Files\\Velmo\\"});

  testing::WriteFileBytes(Folder() / "b.bmp", EncodeBmp(Bitmap(4, 4, kRed), false));
  EXPECT_EQ(ReloadReporting(), std::vector<std::wstring>{
                                   L"File not found:\r\n\\Program Files\\Velmo\\~NoCategory.bmp"});
  EXPECT_EQ(ImageOf(L"b")->letter, 0);
  EXPECT_TRUE(ImageOf(L"c")->letter != 0);
}

TEST_F(CategoryIcons, BadFilesAreShownEveryTime) {
  testing::WriteFileBytes(Folder() / "~NoCategory.bmp", EncodeBmp(Bitmap(4, 4, kRed), false));
  testing::WriteFileBytes(Folder() / "a.bmp", "garbage");
  testing::WriteFileBytes(Folder() / "c.bmp", "more garbage");
  InitCategories(0, L"", L"");
  ParseCategories(CategoryCatalogue(), L"a,b,c,d", InLoadedTasks, false);
  EXPECT_EQ(ReloadReporting(), (std::vector<std::wstring>{
                                   L"Bad File:\r\n\\Program Files\\Velmo\\a.bmp",
                                   L"File not found:\r\n\\Program Files\\Velmo\\b.bmp",
                                   L"Bad File:\r\n\\Program Files\\Velmo\\c.bmp"}));
  EXPECT_TRUE(ImageOf(L"a")->letter != 0);  // a bad file still leaves a letter icon

  // Entries the dialog does not show load silently and leave the flag alone.
  std::vector<std::wstring> shown;
  const IconReporter owner = [&](const std::wstring&, const std::wstring& text) {
    shown.push_back(text);
  };
  ReloadCategoryIcons(&owner, [](const CategoryEntry& e) { return e.name == L"d"; });
  EXPECT_EQ(shown, std::vector<std::wstring>{L"File not found:\r\n\\Program Files\\Velmo\\d.bmp"});
}

}  // namespace
}  // namespace velmo

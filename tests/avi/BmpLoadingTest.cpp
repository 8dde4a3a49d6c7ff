// Reading BMP files: every form, every truncation, and headers that lie.
#include <sys/stat.h>

#include <limits>

#include "Recording.h"
#include "platform/media/DeviceContext.h"

namespace {

class BmpLoading : public testing::Test {
protected:
    // The pixels as 0xRRGGBB from top to bottom; empty when the file gives no bitmap.
    std::vector<DWORD> Load(const std::string& bytes) {
        m_tree.Write("a.bmp", bytes);
        return LoadFile("a.bmp");
    }
    std::vector<DWORD> LoadFile(const std::string& name) {
        CBitmap bitmap;
        if (!m_recorder.LoadBMPImage(m_tree.File(name), bitmap)) {
            EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
            return {};
        }
        BITMAP information{};
        EXPECT_NE(bitmap.GetBitmap(&information), 0);
        m_width = information.bmWidth;
        m_height = information.bmHeight;
        std::vector<DWORD> pixels(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height));
        EXPECT_TRUE(ReadBitmapPixels(bitmap, pixels.data()));
        for (DWORD& pixel : pixels)
            pixel &= 0xFFFFFF;
        return pixels;
    }
    bool IsLoaded(const std::string& bytes) { return !Load(bytes).empty(); }

    FileTree m_tree;
    OrvoAVIFile m_recorder;
    LONG m_width = 0;
    LONG m_height = 0;
};

BITMAPINFOHEADER Header(LONG width, LONG height, WORD bits, DWORD compression = BI_RGB) {
    return {40, width, height, 1, bits, compression, 0, 0, 0, 0, 0};
}

std::string Table(std::initializer_list<DWORD> colours) {
    std::string table;
    for (const DWORD colour : colours)
        table += BytesOf(colour);  // blue, green, red, 0
    return table;
}

TEST_F(BmpLoading, Reads24BitsFromTheBottomUp) {
    const std::string rows("\x01\x02\x03\x04\x05\x06\0\0\x07\x08\x09\x0A\x0B\x0C\0\0", 16);
    EXPECT_EQ(Load(BmpFile(Header(2, 2, 24), rows)), (std::vector<DWORD>{0x090807, 0x0C0B0A, 0x030201, 0x060504}));
    EXPECT_EQ(m_width, 2);
    EXPECT_EQ(m_height, 2);
}

TEST_F(BmpLoading, Reads24BitsFromTheTopDown) {
    const std::string rows("\x01\x02\x03\x04\x05\x06\0\0\x07\x08\x09\x0A\x0B\x0C\0\0", 16);
    EXPECT_EQ(Load(BmpFile(Header(2, -2, 24), rows)), (std::vector<DWORD>{0x030201, 0x060504, 0x090807, 0x0C0B0A}));
    EXPECT_EQ(m_height, 2);
}

TEST_F(BmpLoading, Reads32Bits) {
    EXPECT_EQ(Load(BmpFile(Header(1, 1, 32), std::string("\x11\x22\x33\x44", 4))), std::vector<DWORD>{0x332211});
}

TEST_F(BmpLoading, ReadsTablesOfEachDepth) {
    BITMAPINFOHEADER header = Header(3, 1, 1);
    EXPECT_EQ(Load(BmpFile(header, Table({0x102030, 0x405060}) + std::string("\xA0\0\0\0", 4))),
              (std::vector<DWORD>{0x405060, 0x102030, 0x405060}));
    header = Header(3, 1, 4);
    header.biClrUsed = 3;
    EXPECT_EQ(Load(BmpFile(header, Table({1, 2, 3}) + std::string("\x21\x00\0\0", 4))), (std::vector<DWORD>{3, 2, 1}));
    header = Header(3, 1, 8);
    header.biClrUsed = 2;
    EXPECT_EQ(Load(BmpFile(header, Table({7, 9}) + std::string("\x01\x00\x01\0", 4))), (std::vector<DWORD>{9, 7, 9}));
}

TEST_F(BmpLoading, ATableWithoutACountIsFull) {
    std::string table;
    for (DWORD i = 0; i < 256; ++i)
        table += BytesOf(i * 0x010101);
    EXPECT_EQ(Load(BmpFile(Header(4, 1, 8), table + std::string("\x00\x7F\x80\xFF", 4))),
              (std::vector<DWORD>{0, 0x7F7F7F, 0x808080, 0xFFFFFF}));
    EXPECT_FALSE(IsLoaded(BmpFile(Header(4, 1, 8), table.substr(4) + std::string(4, '\0')))) << "one entry is missing";
}

TEST_F(BmpLoading, ColoursBehindADeepHeaderAreSkipped) {
    BITMAPINFOHEADER header = Header(1, 1, 24);
    header.biClrUsed = 2;
    EXPECT_EQ(Load(BmpFile(header, Table({1, 2}) + std::string("\x11\x22\x33\0", 4))), std::vector<DWORD>{0x332211});
}

TEST_F(BmpLoading, Reads16BitsAndBitFields) {
    EXPECT_EQ(Load(BmpFile(Header(2, 1, 16), std::string("\x00\x7C\x1F\x00", 4))),
              (std::vector<DWORD>{0xFF0000, 0x0000FF}));
    const std::string masks = Table({0xF800, 0x07E0, 0x001F});
    EXPECT_EQ(Load(BmpFile(Header(2, 1, 16, BI_BITFIELDS), masks + std::string("\xE0\x07\x00\xF8", 4))),
              (std::vector<DWORD>{0x00FF00, 0xFF0000}));
    const std::string wide = Table({0x000000FF, 0x0000FF00, 0x00FF0000});
    EXPECT_EQ(Load(BmpFile(Header(1, 1, 32, BI_BITFIELDS), wide + std::string("\x11\x22\x33\x44", 4))),
              std::vector<DWORD>{0x112233});
}

TEST_F(BmpLoading, ReadsRunLengthCoding) {
    BITMAPINFOHEADER header = Header(4, 2, 8, BI_RLE8);
    header.biClrUsed = 3;
    const std::string coded("\x04\x01\x00\x00\x02\x02\x02\x00\x00\x01", 10);
    header.biSizeImage = static_cast<DWORD>(coded.size());
    EXPECT_EQ(Load(BmpFile(header, Table({5, 6, 7}) + coded)), (std::vector<DWORD>{7, 7, 5, 5, 6, 6, 6, 6}));
    header.biSizeImage = 0;
    EXPECT_FALSE(IsLoaded(BmpFile(header, Table({5, 6, 7}) + coded))) << "the coding's length must be known";
    header.biSizeImage = static_cast<DWORD>(coded.size() + 1);
    EXPECT_FALSE(IsLoaded(BmpFile(header, Table({5, 6, 7}) + coded))) << "and within the file";
}

TEST_F(BmpLoading, ACodedPictureOutOfProportionIsRefused) {
    BITMAPINFOHEADER header = Header(30000, 30000, 8, BI_RLE8);
    header.biClrUsed = 1;
    header.biSizeImage = 4;
    EXPECT_FALSE(IsLoaded(BmpFile(header, Table({5}) + std::string("\x04\x00\x00\x01", 4))));
}

// The info header counts as 40 bytes, whatever it says; the colour table is taken from there.
TEST_F(BmpLoading, ALongerHeaderIsReadAsTheUsualOne) {
    BITMAPINFOHEADER header = Header(1, 1, 24);
    header.biSize = 124;
    const std::string rest = std::string("\x11\x22\x33\0", 4) + std::string(80, '\x55');
    EXPECT_EQ(Load(BmpFile(header, rest)), std::vector<DWORD>{0x332211});
}

TEST_F(BmpLoading, AShortHeaderIsSurvived) {
    const std::string core("\x0C\0\0\0\x02\0\x02\0\x01\0\x18\0", 12);
    Load(BytesOf(BITMAPFILEHEADER{0x4D42, 0, 0, 0, 26}) + core + std::string(100, '\x7F'));
    EXPECT_FALSE(IsLoaded(BytesOf(BITMAPFILEHEADER{0x4D42, 0, 0, 0, 26}) + core));
}

TEST_F(BmpLoading, ThePlaceOfThePixelsInTheFileHeaderPlaysNoPart) {
    std::string bytes = BmpFile(Header(1, 1, 24), std::string("\x11\x22\x33\0", 4));
    bytes[10] = '\x7F';
    EXPECT_EQ(Load(bytes), std::vector<DWORD>{0x332211});
}

TEST_F(BmpLoading, RefusesWhatIsNoFile) {
    CBitmap bitmap;
    EXPECT_FALSE(m_recorder.LoadBMPImage(m_tree.File("nowhere.bmp"), bitmap));
    EXPECT_FALSE(m_recorder.LoadBMPImage(m_tree.File(""), bitmap)) << "a folder";
    EXPECT_FALSE(m_recorder.LoadBMPImage(L"", bitmap));
    EXPECT_FALSE(m_recorder.LoadBMPImage(nullptr, bitmap));
    ASSERT_EQ(mkfifo((m_tree / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(m_recorder.LoadBMPImage(m_tree.File("pipe"), bitmap)) << "and does not wait";
    EXPECT_FALSE(m_recorder.LoadBMPImage(L"/dev/zero", bitmap)) << "and does not end";
    EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
}

TEST_F(BmpLoading, RefusesAnotherTypeOfFile) {
    std::string bytes = SmallBmp();
    bytes[0] = 'C';
    EXPECT_FALSE(IsLoaded(bytes));
    bytes = SmallBmp();
    bytes[1] = 'm';
    EXPECT_FALSE(IsLoaded(bytes));
}

TEST_F(BmpLoading, ABitmapThatIsThereStays) {
    CBitmap bitmap;
    MakePicture(bitmap);
    const HBITMAP before = bitmap.GetSafeHandle();
    m_tree.Write("a.bmp", SmallBmp());
    const std::size_t bitmaps = LiveBitmaps();
    EXPECT_FALSE(m_recorder.LoadBMPImage(m_tree.File("a.bmp"), bitmap));
    EXPECT_EQ(bitmap.GetSafeHandle(), before);
    EXPECT_EQ(LiveBitmaps(), bitmaps);
}

// A valid file of each kind, to be damaged.
std::vector<std::string> ValidFiles() {
    BITMAPINFOHEADER coded = Header(4, 2, 8, BI_RLE8);
    coded.biClrUsed = 3;
    coded.biSizeImage = 10;
    BITMAPINFOHEADER coded4 = Header(4, 2, 4, BI_RLE4);
    coded4.biClrUsed = 3;
    coded4.biSizeImage = 10;
    const std::string codes("\x04\x01\x00\x00\x02\x02\x02\x00\x00\x01", 10);
    return {SmallBmp(),
            BmpFile(Header(3, 2, 32), std::string(24, '\x11')),
            BmpFile(Header(3, 2, 16), std::string(16, '\x22')),
            BmpFile(Header(3, 2, 1), Table({1, 2}) + std::string(8, '\x33')),
            BmpFile(Header(3, 2, 4), std::string(64, '\x44') + std::string(8, '\x05')),
            BmpFile(Header(3, 2, 8), std::string(1024, '\x55') + std::string(8, '\x06')),
            BmpFile(Header(3, 2, 16, BI_BITFIELDS), Table({0xF800, 0x07E0, 0x001F}) + std::string(16, '\x66')),
            BmpFile(coded, Table({5, 6, 7}) + codes),
            BmpFile(coded4, Table({5, 6, 7}) + codes)};
}

TEST_F(BmpLoading, ValidFilesAreValid) {
    for (const std::string& file : ValidFiles())
        EXPECT_TRUE(IsLoaded(file));
}

TEST_F(BmpLoading, EveryTruncationIsRefused) {
    const std::size_t blocks = LiveGlobalBlocks();
    const std::size_t contexts = LiveDeviceContexts();
    for (const std::string& file : ValidFiles())
        for (std::size_t size = 0; size < file.size(); ++size)
            EXPECT_FALSE(IsLoaded(file.substr(0, size))) << size << " of " << file.size();
    EXPECT_EQ(LiveGlobalBlocks(), blocks);
    EXPECT_EQ(LiveDeviceContexts(), contexts);
}

// Each field of the header set to values that could lead a reader astray. Nothing may be read outside the file (the
// sanitizers watch), and whatever is loaded must be in proportion to the file.
TEST_F(BmpLoading, HostileFieldsAreSurvived) {
    constexpr DWORD kValues[] = {0,          1,          2,          3,          7,          8,
                                 31,         33,         64,         255,        256,        0x7FFF,
                                 0x8000,     0xFFFF,     0x10000,    0x7FFFFF,   0x3FFFFFFF, 0x40000000,
                                 0x7FFFFFFF, 0x80000000, 0x80000001, 0xFFFFFFFE, 0xFFFFFFFF};
    struct Field {
        std::size_t at, size;
    };
    constexpr Field kFields[] = {{14, 4}, {18, 4}, {22, 4}, {26, 2}, {28, 2}, {30, 4}, {34, 4}, {46, 4}, {50, 4}};
    for (const std::string& file : ValidFiles()) {
        for (const Field& field : kFields) {
            for (const DWORD value : kValues) {
                std::string damaged = file;
                damaged.replace(field.at, field.size, BytesOf(value).substr(0, field.size));
                const std::vector<DWORD> pixels = Load(damaged);
                EXPECT_LE(pixels.size(), file.size() * 256) << field.at << ' ' << value;
            }
        }
    }
}

TEST_F(BmpLoading, HostileSizesTogetherAreRefused) {
    for (const LONG width : {65536, 0x40000000, std::numeric_limits<LONG>::max()})
        for (const LONG height : {65536, -65536, std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()})
            for (const WORD bits : {WORD{1}, WORD{8}, WORD{24}, WORD{32}})
                EXPECT_FALSE(IsLoaded(BmpFile(Header(width, height, bits), std::string(2000, '\0'))));
}

TEST_F(BmpLoading, AHugeFileIsRefusedUnread) {
    m_tree.Write("a.bmp", SmallBmp());
    std::filesystem::resize_file(m_tree / "a.bmp", std::uintmax_t{1} << 33);
    EXPECT_TRUE(LoadFile("a.bmp").empty());
}

}  // namespace

// Packed device-independent bitmaps: their blocks, headers and pixels.
#include "Recording.h"
#include "platform/media/DeviceContext.h"

namespace {

class MadeDib {
public:
    MadeDib(HBITMAP bitmap, UINT bits) : m_block(OrvoAVIFile().MakeDib(bitmap, bits)) {}
    ~MadeDib() { GlobalFree(m_block); }
    MadeDib(const MadeDib&) = delete;
    MadeDib& operator=(const MadeDib&) = delete;

    HGLOBAL Block() const { return m_block; }
    std::string Bytes() const {
        const auto* first = static_cast<const char*>(GlobalLock(m_block));
        std::string bytes(first, GlobalSize(m_block));
        GlobalUnlock(m_block);
        return bytes;
    }

private:
    HGLOBAL m_block;
};

TEST(MakeDib, HoldsHeaderTableAndRows) {
    CBitmap picture;
    MakePicture(picture, 7, 5);
    for (const UINT bits : {1U, 4U, 8U, 16U, 24U, 32U}) {
        const MadeDib dib(picture, bits);
        ASSERT_NE(dib.Block(), nullptr);
        const std::size_t entries = bits <= 8 ? std::size_t{1} << bits : 0;
        const std::size_t row = (7 * bits + 31) / 32 * 4;
        EXPECT_EQ(GlobalSize(dib.Block()), 40 + 4 * entries + row * 5) << bits;
        const BITMAPINFOHEADER header = {40,
                                         7,
                                         5,
                                         1,
                                         static_cast<WORD>(bits),
                                         BI_RGB,
                                         static_cast<DWORD>(row * 5),
                                         0,
                                         0,
                                         static_cast<DWORD>(entries),
                                         0};
        EXPECT_EQ(dib.Bytes().substr(0, 40), BytesOf(header)) << bits;
    }
}

TEST(MakeDib, ReadsBackToTheSamePicture) {
    CBitmap picture;
    MakePicture(picture, 7, 5, 3);
    std::vector<DWORD> original(35);
    ASSERT_TRUE(ReadBitmapPixels(picture, original.data()));
    for (const UINT bits : {4U, 8U, 16U, 24U, 32U}) {
        const MadeDib dib(picture, bits);
        const std::string bytes = dib.Bytes();
        const auto* info = reinterpret_cast<const BITMAPINFO*>(bytes.data());
        const HDC screen = GetDC(nullptr);
        CBitmap read;
        read.Attach(CreateDIBitmap(screen, &info->bmiHeader, CBM_INIT,
                                   bytes.data() + 40 + 4 * info->bmiHeader.biClrUsed, info, DIB_RGB_COLORS));
        ReleaseDC(nullptr, screen);
        std::vector<DWORD> pixels(35);
        ASSERT_TRUE(ReadBitmapPixels(read, pixels.data())) << bits;
        for (std::size_t i = 0; i < pixels.size(); ++i)
            EXPECT_EQ(pixels[i] & 0xFFFFFF, original[i]) << bits << ' ' << i;
    }
}

TEST(MakeDib, TablesHoldThePureColours) {
    CBitmap picture;
    MakePicture(picture);
    for (const UINT bits : {1U, 4U, 8U}) {
        const std::string bytes = MadeDib(picture, bits).Bytes();
        for (unsigned colour = 0; colour < 8; ++colour) {
            if (bits == 1 && colour != 0 && colour != 7)
                continue;
            bool isThere = false;
            for (std::size_t i = 0; i < std::size_t{1} << bits; ++i) {
                RGBQUAD entry;
                std::memcpy(&entry, bytes.data() + 40 + 4 * i, sizeof entry);
                isThere =
                    isThere || (entry.rgbRed == (colour & 1 ? 255 : 0) && entry.rgbGreen == (colour & 2 ? 255 : 0) &&
                                entry.rgbBlue == (colour & 4 ? 255 : 0) && entry.rgbReserved == 0);
            }
            EXPECT_TRUE(isThere) << bits << ' ' << colour;
        }
    }
}

TEST(MakeDib, ADepthThatNobodyKnowsHasBlackPixels) {
    CBitmap picture;
    MakePicture(picture, 7, 5);
    const MadeDib dib(picture, 5);
    ASSERT_NE(dib.Block(), nullptr);
    EXPECT_EQ(GlobalSize(dib.Block()), 40U + 4 * 32 + 8 * 5);
    EXPECT_EQ(dib.Bytes().substr(40 + 4 * 32), std::string(40, '\0'));
}

TEST(MakeDib, IsNullForWhatIsNoBitmapOrTooLarge) {
    OrvoAVIFile recorder;
    const std::size_t blocks = LiveGlobalBlocks();
    EXPECT_EQ(recorder.MakeDib(nullptr, 24), nullptr);
    CBitmap picture;
    MakePicture(picture);
    const HBITMAP gone = picture.GetSafeHandle();
    picture.DeleteObject();
    EXPECT_EQ(recorder.MakeDib(gone, 24), nullptr);
    CBitmap large;
    MakePicture(large, 2000, 2000);
    EXPECT_EQ(recorder.MakeDib(large, 60000), nullptr) << "more than 2 GiB";
    EXPECT_EQ(recorder.MakeDib(large, 0xFFFFFFFF), nullptr);
    EXPECT_EQ(LiveGlobalBlocks(), blocks);
}

TEST(MakeDib, GivesAMovableBlockUnlockedAndItsContextBack) {
    CBitmap picture;
    MakePicture(picture);
    const std::size_t contexts = LiveDeviceContexts();
    const MadeDib dib(picture, 24);
    EXPECT_EQ(LiveDeviceContexts(), contexts);
    void* const address = GlobalLock(dib.Block());
    EXPECT_NE(address, dib.Block()) << "a handle, not an address";
    EXPECT_EQ(GlobalUnlock(dib.Block()), 0) << "this lock was the only one";
}

TEST(MakeDib, ADepthOfNoBitsGivesNone) {
    CBitmap picture;
    MakePicture(picture);
    const std::size_t blocks = LiveGlobalBlocks();
    OrvoAVIFile recorder;
    EXPECT_EQ(recorder.MakeDib(picture, 0), nullptr);
    recorder.SetColorNum(0);
    EXPECT_EQ(recorder.AddFrame(picture), 0);
    EXPECT_EQ(recorder.IsOK(), 1) << "nothing has failed in the file";
    EXPECT_EQ(LiveGlobalBlocks(), blocks);
}

}  // namespace

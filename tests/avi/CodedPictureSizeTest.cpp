// Run-length coded files say little and may mean much: how large a picture one of them may ask for.
#include "Recording.h"

namespace {

// A picture of 256 columns, all in the colour 0. The file's size is 14 + 40 + 4 + 6 + padding bytes.
std::string CodedFile(LONG rows, std::size_t padding, WORD bits) {
    const std::string coded("\xFF\x00\x00\x00\x00\x01", 6);
    const BITMAPINFOHEADER header = {
        40, 256, rows, 1, bits, bits == 8 ? BI_RLE8 : BI_RLE4, static_cast<DWORD>(coded.size()), 0, 0, 1, 0};
    return BmpFile(header, std::string(4, '\0') + coded + std::string(padding, '\0'));
}

// 4 bytes for each pixel in memory: a row takes 1024 bytes, so each 4 bytes in the file are good for one.
TEST(CodedPictureSize, AFileIsGoodFor256TimesItsSize) {
    const FileTree tree;
    OrvoAVIFile recorder;
    for (const WORD bits : {WORD{4}, WORD{8}}) {
        for (const std::size_t padding : {0U, 4U, 400U}) {
            const auto most = static_cast<LONG>((64 + padding) / 4);
            CBitmap fits;
            tree.Write("a.bmp", CodedFile(most, padding, bits));
            EXPECT_EQ(recorder.LoadBMPImage(tree.File("a.bmp"), fits), 1) << bits << ' ' << padding;
            CBitmap large;
            tree.Write("a.bmp", CodedFile(most + 1, padding, bits));
            EXPECT_EQ(recorder.LoadBMPImage(tree.File("a.bmp"), large), 0) << bits << ' ' << padding;
            EXPECT_EQ(large.GetSafeHandle(), nullptr);
        }
    }
}

}  // namespace

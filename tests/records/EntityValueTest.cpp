// Values between buffers and a caller's memory: each result type in both directions, and the table of sizes.
#include "records/EntityValue.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <limits>
#include <vector>

#include "platform/base/Abandon.h"

namespace {

// A buffer for a value of a result type, freed at the end.
class Buffer {
public:
    explicit Buffer(int type) : m_buffer(acutNewRb(type)) {}
    ~Buffer() { acutRelRb(m_buffer); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    resbuf& operator*() const { return *m_buffer; }
    resbuf* operator->() const { return m_buffer; }

private:
    resbuf* m_buffer;
};

// What FetchValue writes, up to the first byte that it leaves alone.
std::vector<unsigned char> Fetched(const resbuf& buffer, int type, std::size_t size) {
    std::vector<unsigned char> out(64, 0xEE);
    EXPECT_TRUE(FetchValue(buffer, type, out.data()));
    for (std::size_t i = size; i < out.size(); ++i)
        EXPECT_EQ(out[i], 0xEE) << "byte " << i << " of type " << type << " was written";
    out.resize(size);
    return out;
}

template <class T>
T FetchedAs(const resbuf& buffer, int type) {
    T value;
    std::memcpy(&value, Fetched(buffer, type, sizeof(T)).data(), sizeof(T));
    return value;
}

}  // namespace

TEST(EntityValue, HasTheSizesOfItsTypes) {
    const int sizes[] = {8, 24, 2, 8, 8, 16, 16, 8, 24, 4};
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(GetValueSize(5001 + i), sizes[i]) << "type " << 5001 + i;
}

TEST(EntityValue, HasNoSizeForOtherTypes) {
    for (const int type : {5000, 5011, 4999, 0, 10, -1, INT_MIN, INT_MAX})
        EXPECT_EQ(GetValueSize(type), -5001) << "type " << type;
}

TEST(EntityValue, StoresAndFetchesOneWordForNumbersAndAngles) {
    for (const int type : {RTREAL, RTANG, RTORINT}) {
        const Buffer buffer(type);
        for (const double value : {-1.25, 5e-324, std::numeric_limits<double>::infinity()}) {
            EXPECT_TRUE(StoreValue(*buffer, type, &value));
            EXPECT_EQ(buffer->resval.rreal, value);
            EXPECT_EQ(FetchedAs<double>(*buffer, type), value);
        }
        const std::uint64_t bits = 0x7FF4000000000001;  // a number that arithmetic would not leave as it is
        EXPECT_TRUE(StoreValue(*buffer, type, &bits));
        EXPECT_EQ(FetchedAs<std::uint64_t>(*buffer, type), bits);
    }
}

TEST(EntityValue, StoresAndFetchesThreeNumbersForPoints) {
    for (const int type : {RTPOINT, RT3DPOINT}) {
        const Buffer buffer(type);
        const double value[] = {1.5, -2.5, 3.5};
        EXPECT_TRUE(StoreValue(*buffer, type, value));
        EXPECT_EQ(std::memcmp(buffer->resval.rpoint, value, sizeof(value)), 0);
        const std::vector<unsigned char> out = Fetched(*buffer, type, 24);
        EXPECT_EQ(std::memcmp(out.data(), value, 24), 0);
    }
}

TEST(EntityValue, StoresTheFirstAndTheThirdWordOfNamesAndFetchesThemSideBySide) {
    for (const int type : {RTENAME, RTPICKS}) {
        const Buffer buffer(type);
        const std::uint64_t words[] = {0x1111111111111111, 0x2222222222222222, 0x3333333333333333};
        EXPECT_TRUE(StoreValue(*buffer, type, words));
        EXPECT_EQ(buffer->resval.rlname[0], words[0]);
        EXPECT_EQ(buffer->resval.rlname[1], words[2]);
        std::uint64_t out[2];
        std::memcpy(out, Fetched(*buffer, type, 16).data(), 16);
        EXPECT_EQ(out[0], words[0]);
        EXPECT_EQ(out[1], words[2]);
    }
}

TEST(EntityValue, Stores16BitsAndFetches32WithTheSign) {
    const Buffer buffer(RTSHORT);
    constexpr std::int16_t kValues[] = {SHRT_MIN, -1, 0, 1, SHRT_MAX};
    for (const std::int16_t value : kValues) {
        std::int32_t given = 0x55550000;
        std::memcpy(&given, &value, sizeof(value));  // whatever stands behind the 16 bits
        EXPECT_TRUE(StoreValue(*buffer, RTSHORT, &given));
        EXPECT_EQ(buffer->resval.rint, value);
        EXPECT_EQ(FetchedAs<std::int32_t>(*buffer, RTSHORT), value);
    }
}

TEST(EntityValue, StoresAndFetches32Bits) {
    const Buffer buffer(RTLONG);
    for (const std::int32_t value : {INT32_MIN, -1, 0, INT32_MAX}) {
        EXPECT_TRUE(StoreValue(*buffer, RTLONG, &value));
        EXPECT_EQ(buffer->resval.rlong, value);
        EXPECT_EQ(FetchedAs<std::int32_t>(*buffer, RTLONG), value);
    }
}

TEST(EntityValue, StoresACopyOfATextAndFetchesItWithItsEnd) {
    const Buffer buffer(RTSTR);
    wchar_t given[] = L"北窗";
    const wchar_t* pointer = given;
    EXPECT_TRUE(StoreValue(*buffer, RTSTR, &pointer));
    EXPECT_NE(buffer->resval.rstring, given);
    given[0] = L'x';
    EXPECT_STREQ(buffer->resval.rstring, L"北窗");
    const std::vector<unsigned char> out = Fetched(*buffer, RTSTR, 3 * sizeof(wchar_t));
    EXPECT_EQ(std::memcmp(out.data(), L"北窗", 3 * sizeof(wchar_t)), 0);
}

TEST(EntityValue, GivesUpTheTextThatWasThereAndNothingElse) {
    const Buffer buffer(RTSTR);
    const std::size_t before = AbandonedCount();
    const wchar_t* text = L"first";
    EXPECT_TRUE(StoreValue(*buffer, RTSTR, &text));
    EXPECT_EQ(AbandonedCount(), before);
    wchar_t* const first = buffer->resval.rstring;
    text = L"second";
    EXPECT_TRUE(StoreValue(*buffer, RTSTR, &text));
    EXPECT_EQ(AbandonedCount(), before + 1);
    EXPECT_STREQ(first, L"first");  // still there for whoever looks at it
    EXPECT_STREQ(buffer->resval.rstring, L"second");
}

TEST(EntityValue, TakesNoTextForAnEmptyOne) {
    const Buffer buffer(RTSTR);
    std::vector<unsigned char> out = Fetched(*buffer, RTSTR, sizeof(wchar_t));
    EXPECT_EQ(std::memcmp(out.data(), L"", sizeof(wchar_t)), 0);
    const wchar_t* text = nullptr;
    EXPECT_TRUE(StoreValue(*buffer, RTSTR, &text));
    EXPECT_STREQ(buffer->resval.rstring, L"");
}

TEST(EntityValue, StoresAndFetchesNothingForOtherTypes) {
    for (const int type : {RTNONE, 5011, 0, -1}) {
        const Buffer buffer(RTREAL);
        buffer->resval.rreal = 1.5;
        const double value = 2.5;
        EXPECT_TRUE(StoreValue(*buffer, type, &value));
        EXPECT_EQ(buffer->resval.rreal, 1.5);
        double out = 3.5;
        EXPECT_FALSE(FetchValue(*buffer, type, &out));
        EXPECT_EQ(out, 3.5);
    }
}

TEST(EntityValue, NeedsNoAlignment) {
    const Buffer buffer(RT3DPOINT);
    const double value[] = {1.5, -2.5, 3.5};
    unsigned char bytes[40] = {};
    std::memcpy(bytes + 1, value, sizeof(value));
    EXPECT_TRUE(StoreValue(*buffer, RT3DPOINT, bytes + 1));
    EXPECT_EQ(buffer->resval.rpoint[2], 3.5);
    EXPECT_TRUE(FetchValue(*buffer, RT3DPOINT, bytes + 3));
    EXPECT_EQ(std::memcmp(bytes + 3, value, sizeof(value)), 0);
}

// Reads Chinese with the general table of ICU, and with one of our own where names of places are read differently.
#include "platform/base/LatinNames.h"

#include <unicode/translit.h>
#include <unicode/unistr.h>

#include <memory>
#include <span>
#include <string>

#include "platform/base/PlaceReadings.h"

namespace {

constexpr UChar32 kFirstMark = 0x300;  // marks over and under letters
constexpr UChar32 kLastMark = 0x36F;
constexpr UChar32 kDiaeresis = 0x308;

std::unique_ptr<icu::Transliterator> MakeReader(const char* rule) {
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> reader(
        icu::Transliterator::createInstance(icu::UnicodeString(rule), UTRANS_FORWARD, error));
    return U_SUCCESS(error) ? std::move(reader) : nullptr;
}

// Null where the library came without its tables. Made once, because that takes some milliseconds.
const icu::Transliterator* ChineseReader() {
    static const std::unique_ptr<icu::Transliterator> reader = MakeReader("Han-Latin; NFD; Lower");
    return reader.get();
}

const icu::Transliterator* LatinReader() {
    static const std::unique_ptr<icu::Transliterator> reader = MakeReader("NFD; Lower");
    return reader.get();
}

bool IsSmallLetterOrDigit(UChar32 c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool IsBetweenSyllables(UChar32 c) {
    constexpr UChar32 kRightQuote = 0x2019;
    return c == ' ' || c == '\'' || c == kRightQuote || c == '-' || c == '.';
}

// False when the text holds what is neither a letter, nor a digit, nor what may stand between them.
bool AppendFolded(const CString& text, const icu::Transliterator* reader, CString& folded) {
    icu::UnicodeString letters = icu::UnicodeString::fromUTF8(ToUtf8(text.View()));
    if (!reader)
        return false;
    reader->transliterate(letters);
    for (int i = 0; i < letters.length(); i = letters.moveIndex32(i, 1)) {
        const UChar32 c = letters.char32At(i);
        const int last = folded.GetLength() - 1;
        if (IsSmallLetterOrDigit(c))
            folded += static_cast<wchar_t>(c);
        else if (c == kDiaeresis && folded.GetAt(last) == L'u')
            folded.SetAt(last, L'v');
        else if (!IsBetweenSyllables(c) && (c < kFirstMark || c > kLastMark))
            return false;
    }
    return true;
}

// The longest word of the table with which the name goes on at an index; null for none.
const PlaceReading* ReadingAt(const CString& name, int index, std::span<const PlaceReading> readings) {
    const std::wstring_view rest = name.View().substr(static_cast<std::size_t>(index));
    const PlaceReading* longest = nullptr;
    for (const PlaceReading& each : readings)
        if (rest.starts_with(each.chinese) &&
            (!longest || ViewOf(each.chinese).size() > ViewOf(longest->chinese).size()))
            longest = &each;
    return longest;
}

// Empty where a character has no reading.
CString Pronunciation(const CString& name) {
    CString folded;
    int index = 0;
    while (index < name.GetLength()) {
        if (const PlaceReading* reading = ReadingAt(name, index, kPlaceReadings)) {
            folded += reading->latin;
            index += CString(reading->chinese).GetLength();
            continue;
        }
        const int first = index;
        while (index < name.GetLength() && !ReadingAt(name, index, kPlaceReadings))
            ++index;
        if (!AppendFolded(name.Mid(first, index - first), ChineseReader(), folded))
            return {};
    }
    return folded;
}

// ü is also typed as u, and passports have yu for it.
void AddSpellings(const CString& latin, std::vector<CString>& names) {
    if (latin.IsEmpty())
        return;
    names.push_back(latin);
    for (const wchar_t* other : {L"u", L"yu"}) {
        CString spelling = latin;
        if (spelling.Replace(L"v", other) > 0)
            names.push_back(spelling);
    }
}

}  // namespace

CString FoldLatin(const CString& text) {
    CString folded;
    return AppendFolded(text, LatinReader(), folded) ? folded : CString();
}

std::vector<CString> LatinNames(const CString& name) {
    std::vector<CString> names;
    AddSpellings(Pronunciation(name), names);
    for (const PlaceReading& each : kOtherSpellings) {
        if (!name.View().starts_with(each.chinese))
            continue;
        const CString rest = name.Mid(CString(each.chinese).GetLength());
        if (const CString behind = Pronunciation(rest); rest.IsEmpty() || !behind.IsEmpty())
            AddSpellings(each.latin + behind, names);
    }
    return names;
}

bool BeginsInLatin(const CString& name, const CString& folded) {
    for (const CString& latin : LatinNames(name))
        if (latin.View().starts_with(folded.View()))
            return true;
    return false;
}

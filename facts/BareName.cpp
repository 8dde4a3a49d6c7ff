// Takes the kinds of places, and of autonomous ones their peoples, away from the end of a name.
#include "facts/BareName.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr int kLeastLeft = 2;

// A longer word stands before one that it ends with.
constexpr std::array kAutonomous = {L"自治州", L"自治县", L"自治区"};
constexpr std::array kKinds = {L"新区", L"林区", L"地区", L"区", L"县", L"市", L"盟"};
constexpr std::array kPeoples = {L"柯尔克孜", L"哈萨克", L"蒙古族", L"朝鲜族", L"土家族", L"布依族", L"哈尼族",
                                 L"景颇族",   L"傈僳族", L"蒙古",   L"藏族",   L"羌族",   L"彝族",   L"苗族",
                                 L"侗族",     L"壮族",   L"傣族",   L"白族",   L"回族",   L"黎族"};

bool TakeEnd(CString& name, std::span<const wchar_t* const> ends) {
    for (const CString end : ends) {
        const int left = name.GetLength() - end.GetLength();
        if (left < kLeastLeft || !name.View().ends_with(end.View()))
            continue;
        name = name.Left(left);
        return true;
    }
    return false;
}

}  // namespace

CString BareName(const CString& name) {
    CString bare = name;
    if (!TakeEnd(bare, kAutonomous)) {
        TakeEnd(bare, kKinds);
        return bare;
    }
    while (TakeEnd(bare, kPeoples)) {
    }
    return bare;
}

// Converts texts and places in them. The toolkit counts in 16-bit units whatever wchar_t is.
#include "platform/window/toolkit/QtText.h"

#include <QString>
#include <algorithm>

namespace {

// How many wchar_t units the next character at `i` takes, and how many of the toolkit's.
int QtUnits(const QString& text, int i) {
    const bool pair = i + 1 < text.size() && text[i].isHighSurrogate() && text[i + 1].isLowSurrogate();
    return pair ? 2 : 1;
}

int WideUnits(int qtUnits) {
    return sizeof(wchar_t) == 2 ? qtUnits : 1;
}

}  // namespace

QString ToQString(const CString& text) {
    return QString::fromWCharArray(text.GetString(), text.GetLength());
}

CString FromQString(const QString& text) {
    const std::wstring wide = text.toStdWString();
    return CString(std::wstring_view(wide));
}

int ToQtIndex(const QString& text, int index) {
    int i = 0;
    for (int wide = 0; i < text.size() && wide < index;) {
        const int units = QtUnits(text, i);
        i += units;
        wide += WideUnits(units);
    }
    return i;
}

int FromQtIndex(const QString& text, int index) {
    int wide = 0;
    for (int i = 0; i < std::min(index, static_cast<int>(text.size()));) {
        const int units = QtUnits(text, i);
        i += units;
        wide += WideUnits(units);
    }
    return wide;
}

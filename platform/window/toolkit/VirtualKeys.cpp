// Translates keys between the framework's numbers and the toolkit's.
#include "platform/window/toolkit/VirtualKeys.h"

#include <QKeyEvent>
#include <QString>
#include <array>
#include <utility>

#include "platform/window/WindowMessages.h"

namespace {

constexpr std::array<std::pair<int, UINT>, 21> kKeys = {{
    {Qt::Key_Backspace, VK_BACK}, {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB}, {Qt::Key_Return, VK_RETURN},
    {Qt::Key_Enter, VK_RETURN},   {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE}, {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},  {Qt::Key_End, VK_END},       {Qt::Key_Home, VK_HOME},   {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},          {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},   {Qt::Key_Insert, VK_INSERT},
    {Qt::Key_Delete, VK_DELETE},  {Qt::Key_Menu, VK_APPS},     {Qt::Key_Shift, VK_SHIFT}, {Qt::Key_Control, VK_CONTROL},
    {Qt::Key_Alt, VK_MENU},
}};
constexpr int kFunctionKeys = 24;

bool IsLetter(int key) {
    return key >= Qt::Key_A && key <= Qt::Key_Z;
}

bool IsDigit(int key) {
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

}  // namespace

UINT ToVirtualKey(const QKeyEvent& event) {
    const int key = event.key();
    for (const auto& [qtKey, virtualKey] : kKeys)
        if (qtKey == key)
            return virtualKey;
    if (IsDigit(key) && event.modifiers().testFlag(Qt::KeypadModifier))
        return VK_NUMPAD0 + static_cast<UINT>(key - Qt::Key_0);
    if (IsLetter(key) || IsDigit(key))
        return static_cast<UINT>(key);
    if (key >= Qt::Key_F1 && key < Qt::Key_F1 + kFunctionKeys)
        return VK_F1 + static_cast<UINT>(key - Qt::Key_F1);
    return 0;
}

int ToQtKey(UINT virtualKey) {
    for (const auto& [qtKey, known] : kKeys)
        if (known == virtualKey)
            return qtKey;
    const int key = static_cast<int>(virtualKey);
    if (IsLetter(key) || IsDigit(key))
        return key;
    if (virtualKey >= VK_NUMPAD0 && virtualKey < VK_NUMPAD0 + 10)
        return Qt::Key_0 + static_cast<int>(virtualKey - VK_NUMPAD0);
    if (virtualKey >= VK_F1 && virtualKey < VK_F1 + static_cast<UINT>(kFunctionKeys))
        return Qt::Key_F1 + static_cast<int>(virtualKey - VK_F1);
    return 0;
}

QString CharactersOf(const QKeyEvent& event) {
    constexpr int kControlMask = 0x1F;
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    switch (event.key()) {
        case Qt::Key_Backspace:
            return QString(QChar(VK_BACK));
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return QString(QChar(VK_RETURN));
        case Qt::Key_Escape:
            return QString(QChar(VK_ESCAPE));
        case Qt::Key_Tab:
            return QString(QChar(VK_TAB));
        case Qt::Key_Delete:
        case Qt::Key_Backtab:
            return {};
        default:
            break;
    }
    if (control && !alt)
        return IsLetter(event.key()) ? QString(QChar(event.key() & kControlMask)) : QString();
    // Ctrl and Alt together are how some keyboards say AltGr.
    return alt && !control ? QString() : event.text();
}

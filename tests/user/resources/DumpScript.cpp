// Prints the dialogs of a resource script as our reader sees them: a line for each dialog and each item, fields
// separated by tabs, texts as the hexadecimal digits of their UTF-8. Exits with 1 and the reader's message for a script
// that it refuses.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/window/resource/ResourceScript.h"

namespace {

std::string Hex(const CString& text) {
    std::string digits;
    for (const char byte : ToUtf8(text.View())) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        digits += two;
    }
    return digits;
}

void Print(const DialogTemplate& dialog) {
    std::printf("dialog\t%u\t%u\t%u\t%d\t%d\t%d\t%d\t%s\t%d\t%s\n", dialog.id, dialog.style, dialog.exStyle, dialog.x,
                dialog.y, dialog.cx, dialog.cy, Hex(dialog.caption).c_str(), dialog.pointSize,
                Hex(dialog.face).c_str());
    for (const DialogItemTemplate& item : dialog.items)
        std::printf("item\t%s\t%u\t%u\t%u\t%d\t%d\t%d\t%d\t%s\n", Hex(item.windowClass).c_str(), item.id, item.style,
                    item.exStyle, item.x, item.y, item.cx, item.cy, Hex(item.text).c_str());
}

}  // namespace

int main(int count, char** arguments) {
    std::ifstream file(count == 2 ? arguments[1] : "", std::ios::binary);
    const std::string script((std::istreambuf_iterator<char>(file)), {});
    ResourceScript reader;
    CString message;
    if (!file || !reader.Parse(script, message)) {
        std::fprintf(stderr, "%s\n", ToUtf8(message.View()).c_str());
        return 1;
    }
    for (const DialogTemplate& dialog : reader.Dialogs())
        Print(dialog);
    return 0;
}

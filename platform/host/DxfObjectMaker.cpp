// Groups as texts.
#include "platform/host/DxfObjectMaker.h"

#include <utility>

#include "platform/base/TextNumber.h"
#include "platform/host/DxfDrawing.h"

namespace {

constexpr int kHandle = 5;
constexpr int kOwner = 330;
constexpr int kSubclass = 100;

}  // namespace

DxfObjectMaker::DxfObjectMaker(const DxfDrawing& drawing, DxfHandleSource& handles)
    : m_drawing(drawing), m_handles(handles), m_traits(TraitsOf(drawing)) {}

void DxfObjectMaker::Begin(std::string_view type) {
    EndObject();
    Group(0, type);
}

void DxfObjectMaker::Begin(std::string_view type, std::uint64_t owner) {
    Begin(type);
    if (m_traits.hasHandles)
        Handle(kHandle, m_handles.Take());
    if (m_traits.hasOwners && owner != 0)
        Handle(kOwner, owner);
}

void DxfObjectMaker::Subclass(std::string_view name) {
    if (m_traits.hasSubclasses)
        Group(kSubclass, name);
}

void DxfObjectMaker::Group(int code, std::string_view bytes) {
    m_groups.push_back({code, std::string(bytes)});
}

void DxfObjectMaker::Handle(int code, std::uint64_t handle) {
    Group(code, DxfHandleText(handle));
}

void DxfObjectMaker::Integer(int code, int value) {
    Group(code, std::to_string(value));
}

void DxfObjectMaker::Real(int code, double value) {
    std::string text = ToUtf8(DoubleToText(value).View());
    // As other programs write them: some take a number without a point for one of another type.
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    Group(code, text);
}

void DxfObjectMaker::Text(int code, const CString& text) {
    std::string bytes;
    m_drawing.GetCodec().Encode(text, bytes);
    Group(code, bytes);
}

void DxfObjectMaker::EndObject() {
    if (m_groups.empty())
        return;
    m_objects.text += RewriteDxfObject({}, m_groups, m_drawing.GetStyle());
    ++m_objects.count;
    m_groups.clear();
}

DxfNewObjects DxfObjectMaker::Finish() {
    EndObject();
    return std::exchange(m_objects, DxfNewObjects());
}

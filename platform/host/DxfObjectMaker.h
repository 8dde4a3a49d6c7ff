// Writes new objects group by group, in the way of the drawing that they are for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/CString.h"
#include "platform/host/DxfGroup.h"
#include "platform/host/DxfHandleSource.h"
#include "platform/host/DxfRevision.h"
#include "platform/host/DxfTraits.h"

class DxfDrawing;

class DxfObjectMaker {
public:
    // Both must outlive the maker.
    DxfObjectMaker(const DxfDrawing& drawing, DxfHandleSource& handles);

    const DxfTraits& GetTraits() const { return m_traits; }

    // Begins an object without a handle.
    void Begin(std::string_view type);
    // Begins an object with a handle of its own, and an owner (0: none), where the version has them.
    void Begin(std::string_view type, std::uint64_t owner);
    // A handle that Begin has not given: for where it does not stand first.
    std::uint64_t TakeHandle() { return m_handles.Take(); }
    // A marker, where the version has them.
    void Subclass(std::string_view name);
    void Group(int code, std::string_view bytes);
    void Handle(int code, std::uint64_t handle);
    void Integer(int code, int value);
    void Real(int code, double value);
    void Text(int code, const CString& text);

    // All objects since the last time.
    DxfNewObjects Finish();

private:
    void EndObject();

    const DxfDrawing& m_drawing;
    DxfHandleSource& m_handles;
    DxfTraits m_traits;
    std::vector<DxfGroup> m_groups;  // of the present object
    DxfNewObjects m_objects;
};

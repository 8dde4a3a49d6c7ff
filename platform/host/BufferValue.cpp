// Makes a result buffer from a group's value, and a value from a buffer.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/host/GroupValue.h"

namespace {

bool PutBytes(const std::string& bytes, ads_binary& binary) {
    binary.buf = static_cast<char*>(std::malloc(std::max<std::size_t>(bytes.size(), 1)));
    if (!binary.buf)
        return false;
    std::copy(bytes.begin(), bytes.end(), binary.buf);
    binary.clen = static_cast<std::int16_t>(bytes.size());
    return true;
}

bool Put(const GroupValue& value, ads_u_val& place) {
    switch (value.storage) {
        case GroupStorage::Text:
            return acutNewString(value.text, place.rstring) == RTNORM;
        case GroupStorage::Real:
            place.rreal = value.point[0];
            return true;
        case GroupStorage::Point:
            std::copy(value.point.begin(), value.point.end(), place.rpoint);
            return true;
        case GroupStorage::Short:
            place.rint = static_cast<std::int16_t>(value.integer);
            return true;
        case GroupStorage::Long:
            place.rlong = static_cast<std::int32_t>(value.integer);
            return true;
        case GroupStorage::Int64:
            place.mnInt64 = value.integer;
            return true;
        case GroupStorage::Name:
            std::copy(value.name.begin(), value.name.end(), place.rlname);
            return true;
        case GroupStorage::Binary:
            break;
    }
    return PutBytes(value.bytes, place.rbinary);
}

}  // namespace

resbuf* MakeBuffer(const GroupValue& value) {
    resbuf* buffer = acutNewRb(value.code);
    if (buffer && !Put(value, buffer->resval)) {
        acutRelRb(buffer);
        return nullptr;
    }
    return buffer;
}

GroupValue ValueOf(const resbuf& buffer) {
    GroupValue value;
    value.code = buffer.restype;
    value.storage = StorageOf(buffer.restype);
    const ads_u_val& place = buffer.resval;
    switch (value.storage) {
        case GroupStorage::Text:
            value.text = place.rstring;
            break;
        case GroupStorage::Real:
            value.point[0] = place.rreal;
            break;
        case GroupStorage::Point:
            std::copy(std::begin(place.rpoint), std::end(place.rpoint), value.point.begin());
            break;
        case GroupStorage::Short:
            value.integer = place.rint;
            break;
        case GroupStorage::Long:
            value.integer = place.rlong;
            break;
        case GroupStorage::Int64:
            value.integer = place.mnInt64;
            break;
        case GroupStorage::Name:
            std::copy(std::begin(place.rlname), std::end(place.rlname), value.name.begin());
            break;
        case GroupStorage::Binary:
            if (place.rbinary.buf && place.rbinary.clen > 0)
                value.bytes.assign(place.rbinary.buf, static_cast<std::size_t>(place.rbinary.clen));
            break;
    }
    return value;
}

// The order of what the module does: its calls of the host and the framework pass through this program on their way,
// and are noted while one of these lives.
#pragma once

#include <functional>
#include <string>
#include <vector>

// Notes the names of the calls; "library" and "no library" stand where the framework's list has got or lost the module
// since the note before.
class CallRecord {
public:
    CallRecord();
    ~CallRecord();
    CallRecord(const CallRecord&) = delete;
    CallRecord& operator=(const CallRecord&) = delete;

    // All notes up to now.
    std::vector<std::string> Take();
    void Note(const std::string& call);

    // Called when a dictionary is about to be constructed, with its address.
    std::function<void(const void*)> m_onDictionary;

private:
    void NoteLibrary();

    bool m_hasLibrary;
    std::vector<std::string> m_calls;
};

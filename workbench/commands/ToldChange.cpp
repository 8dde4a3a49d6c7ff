// The messages of a change of the settings, on their way to the user.
#include "workbench/commands/ToldChange.h"

#include "workbench/terminal/Complaint.h"

namespace {

bool Tell(SettingsChange& change, bool isDone) {
    for (const CString& message : change.TakeMessages())
        Complain(message);
    return isDone;
}

}  // namespace

bool BeginTelling(SettingsChange& change) {
    return Tell(change, change.Begin());
}

bool SaveTelling(SettingsChange& change) {
    return Tell(change, change.Save());
}

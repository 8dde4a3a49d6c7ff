// The list of the program's own subcommands, in the order in which the help shows them.
#include "workbench/entry/OwnSubcommands.h"

#include "platform/host/Subcommands.h"
#include "workbench/commands/AnalyseCommand.h"
#include "workbench/commands/CompletionCommand.h"
#include "workbench/commands/EntityCommand.h"
#include "workbench/commands/InfoCommand.h"
#include "workbench/commands/ListCommands.h"
#include "workbench/commands/PointsCommand.h"
#include "workbench/commands/RecordCommand.h"
#include "workbench/commands/SetCommand.h"
#include "workbench/commands/ShadowCommand.h"
#include "workbench/commands/SunCommand.h"
#include "workbench/window/WindowCommand.h"

bool AddOwnSubcommands(void* applicationHandle, CString& reason) {
    for (const Subcommand& row :
         {AnalyseSubcommand(), AnalyzeSubcommand(), PointsSubcommand(), InfoSubcommand(), SunSubcommand(),
          TermsSubcommand(), PlacesSubcommand(), StandardsSubcommand(), ShadowSubcommand(), RecordSubcommand(),
          EntitySubcommand(), SetSubcommand(), WindowSubcommand(), CompletionSubcommand()})
        if (!HostSubcommands().Add(row, applicationHandle, reason))
            return false;
    return true;
}

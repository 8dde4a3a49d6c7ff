// The toolkit's own texts, in the program's language. For the sources of this room only.
#pragma once

class QCoreApplication;

// From now on the menus of edits and date pickers speak the language that is in force when they open.
void TranslateToolkit(QCoreApplication* application);

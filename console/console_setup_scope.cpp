#include "console/console_setup_scope.h"

#include "core/scratch.h"
#include "shell/separators.h"
#include "shell/ui_text.h"

namespace tallymere {

ConsoleSetupScope::ConsoleSetupScope(const TextOptions& options) {
    CreateScratchStack();
    InstallLanguage(options.language);
    ApplySeparators(options.decimal, options.thousands);
}

ConsoleSetupScope::~ConsoleSetupScope() {
    DestroyScratchStack();
}

}  // namespace tallymere

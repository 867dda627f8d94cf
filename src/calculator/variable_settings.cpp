#include "calculator/variable_settings.h"

#include <cstdio>
#include <cstdlib>

#include "calculator/variable_table.h"
#include "shell/text_sink.h"

namespace tallymere {

void LoadVariables(const Settings& record) {
    const bool changed = variableTable.variablesChanged;
    for (int64_t i = 0; i < record.variableCount; i++) {
        if (!AddVariable(variableTable.count)) {
            // A table that lacks some would be saved so. At the start nothing else is unsaved yet.
            if (variableTable.count < MaxVariables) {
                std::fprintf(stderr, "Tallymere: no memory for the variables.\n");
                std::abort();
            }
            break;
        }
        const SettingsVariable& read = record.variables[i];
        const Variable& added = variableTable.variables[variableTable.count - 1];
        CopyBounded(added.name, VariableNameCharacters, *read.name != 0 ? read.name : u"var??");
        CopyBounded(added.value, VariableValueCharacters, read.value);
    }
    variableTable.variablesChanged = changed;
}

void StoreVariables(Settings& record) {
    if (!variableTable.variablesChanged) {
        return;
    }
    record.variableCount = variableTable.count;
    for (int64_t i = 0; i < variableTable.count; i++) {
        record.variables[i] = {variableTable.variables[i].name, variableTable.variables[i].value};
    }
    record.settingsDirty = true;
    variableTable.variablesChanged = false;
}

}  // namespace tallymere

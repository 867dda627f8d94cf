#include "calculator/field_editing.h"

namespace tallymere {

bool ChangesFieldText(uint32_t message, uint64_t parameter) {
    switch (message) {
        case FieldKeyDown:
            return parameter == FieldDeleteKey;
        case FieldCharacter:
            return parameter == FieldBackspace || parameter == FieldLineFeed || parameter >= u' ';
        case FieldUndoEdit:
        case FieldCut:
        case FieldPaste:
        case FieldClear:
        case FieldUndo:
            return true;
        default:
            return false;
    }
}

}  // namespace tallymere

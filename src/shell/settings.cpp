#include "shell/settings.h"

#include "core/number_bases.h"

namespace tallymere {

Settings settings;

namespace {

// Options never leaves them so, but a file can have it: no number could be read back then.
bool AreSameSeparator(const Settings& record) {
    return (record.decimalSeparator == DecimalPoint &&
            record.thousandsSeparator == ThousandsPoint) ||
           (record.decimalSeparator == DecimalComma && record.thousandsSeparator == ThousandsComma);
}

}  // namespace

void RepairSeparators(Settings& record) {
    const bool decimalAutomatic = record.decimalSeparator == DecimalAutomatic;
    const bool thousandsAutomatic = record.thousandsSeparator == ThousandsAutomatic;
    if (decimalAutomatic != thousandsAutomatic || AreSameSeparator(record)) {
        record.decimalSeparator = DecimalAutomatic;
        record.thousandsSeparator = ThousandsAutomatic;
        record.settingsDirty = true;
    }
}

void RepairPrecision(Settings& record) {
    if (record.decimalPrecision < 1) {
        ChangeSetting(record, &Settings::decimalPrecision, DefaultDigits);
    }
}

int64_t InstalledOutputBase(const Settings& record) {
    return FindNumberBase(record.outputNumberBase) != nullptr ? record.outputNumberBase
                                                              : DecimalBase;
}

}  // namespace tallymere

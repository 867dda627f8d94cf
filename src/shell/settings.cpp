#include "shell/settings.h"

namespace tallymere {

namespace {

constexpr int64_t DefaultPrecision = 10;

}  // namespace

Settings settings;

void RepairSeparators(Settings& record) {
    const bool decimalAutomatic = record.decimalSeparator == DecimalAutomatic;
    const bool thousandsAutomatic = record.thousandsSeparator == ThousandsAutomatic;
    if (decimalAutomatic != thousandsAutomatic) {
        record.decimalSeparator = DecimalAutomatic;
        record.thousandsSeparator = ThousandsAutomatic;
        record.settingsDirty = true;
    }
}

void RepairPrecision(Settings& record) {
    if (record.decimalPrecision < 1) {
        ChangeSetting(record, &Settings::decimalPrecision, DefaultPrecision);
    }
}

int64_t InstalledOutputBase(const Settings& record) {
    switch (record.outputNumberBase) {
        case 2:
        case 8:
        case 16:
            return record.outputNumberBase;
        default:
            return 10;
    }
}

}  // namespace tallymere

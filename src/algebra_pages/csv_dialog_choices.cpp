#include "algebra_pages/csv_dialog_choices.h"

#include <algorithm>
#include <string_view>

#include "shell/text_format.h"
#include "shell/ui_text.h"

namespace tallymere {

void AppendCsvExtension(char16_t (&name)[PathCapacity + 1]) {
    constexpr std::u16string_view Extension = u".csv";
    const std::u16string_view whole = name;
    if (whole.substr(whole.find_last_of(u'\\') + 1).find(u'.') != std::u16string_view::npos) {
        return;
    }
    const size_t room = static_cast<size_t>(PathCapacity) - whole.size();
    char16_t* end = name + whole.size();
    *std::ranges::copy(Extension.substr(0, room), end).out = 0;
}

void WriteCsvFilter(char16_t (&filter)[CsvFilterCapacity + 1]) {
    FormatBounded(filter, CsvFilterCapacity, u"%s|*.csv|%s|*.*|",
                  {uiText.TextLinCSVFiles, uiText.TextLinAllFiles});
    std::ranges::replace(filter, u'|', u'\0');
}

}  // namespace tallymere

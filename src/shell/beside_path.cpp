#include "shell/beside_path.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/contract.h"
#include "core/text_writer.h"

namespace tallymere {

namespace {

constexpr std::u16string_view Name = BesideName;

static_assert(BesidePathCapacity ==
              PathCapacity + std::ssize(Name) + std::ssize(std::u16string_view(VerbatimShare)));

void Append(TextWriter& writer, std::u16string_view text) {
    WriteChars(writer, text.data(), std::ssize(text));
}

size_t LengthOfFolder(std::u16string_view path) {
    return path.find_last_of(u"\\/:") + 1;
}

char16_t InLowerCase(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

}  // namespace

bool NamesBesideFile(std::u16string_view path) {
    std::u16string_view name = path.substr(LengthOfFolder(path));
    name = name.substr(0, name.find_last_not_of(u". ") + 1);
    return std::ranges::equal(name, Name, {}, InLowerCase);
}

void FormatBesidePath(char16_t (&beside)[BesidePathCapacity + 1], const char16_t* path) {
    const std::u16string_view whole = path;
    TALLYMERE_REQUIRE(std::ssize(whole) <= PathCapacity);
    std::u16string_view folder = whole.substr(0, LengthOfFolder(whole));
    TextWriter writer = {0, BesidePathCapacity, beside};
    if (std::ssize(folder) + std::ssize(Name) > PathCapacity) {
        const bool isShare = folder.starts_with(u"\\\\");
        Append(writer, isShare ? VerbatimShare : VerbatimDrive);
        // Of the two backslashes before a share one stays.
        folder.remove_prefix(isShare ? 1 : 0);
    }
    Append(writer, folder);
    Append(writer, Name);
    beside[writer.position] = 0;
}

}  // namespace tallymere

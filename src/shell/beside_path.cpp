#include "shell/beside_path.h"

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

}  // namespace

void FormatBesidePath(char16_t (&beside)[BesidePathCapacity + 1], const char16_t* path) {
    const std::u16string_view whole = path;
    TALLYMERE_REQUIRE(std::ssize(whole) <= PathCapacity);
    std::u16string_view folder = whole.substr(0, whole.find_last_of(u"\\/:") + 1);
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

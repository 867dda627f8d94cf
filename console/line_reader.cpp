#include "console/line_reader.h"

#include <algorithm>
#include <string_view>

#include "console/interrupt.h"
#include "console/platform.h"

namespace tallymere {

bool LineReader::Fill() {
    WaitingScope scope;
    next_ = 0;
    const int64_t count = ReadInput(buffer_, sizeof(buffer_));
    failed_ = count < 0;
    end_ = count > 0 ? static_cast<size_t>(count) : 0;
    return end_ != 0;
}

bool LineReader::ReadRaw(std::string& line) {
    line.clear();
    bool any = false;
    while (next_ != end_ || Fill()) {
        any = true;
        const std::string_view bytes(buffer_ + next_, end_ - next_);
        const size_t length = std::min(bytes.find('\n'), bytes.size());
        line.append(bytes.substr(0, std::min(length, MaxLineBytes + 1 - line.size())));
        next_ += length;
        if (length < bytes.size()) {
            next_++;
            return true;
        }
    }
    return any;
}

bool LineReader::Read(std::string& line) {
    if (!ReadRaw(line)) {
        return false;
    }
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (first_ && line.starts_with(byteOrderMark)) {
        line.erase(0, byteOrderMark.size());
    }
    first_ = false;
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return true;
}

}  // namespace tallymere

// Standard input, line by line.
#pragma once

#include <cstddef>
#include <string>

#include "core/limits.h"

namespace tallymere {

class LineReader {
public:
    /// Reads the next line without its end, LF or CR LF; the last line may have none. A UTF-8
    /// byte order mark before the first line is dropped. Of a line longer than MaxLineBytes the
    /// first MaxLineBytes + 1 bytes are given. False at the end of the input.
    bool Read(std::string& line);

    /// True when the input ended because it could not be read.
    bool Failed() const { return failed_; }

private:
    bool Fill();
    bool ReadRaw(std::string& line);

    bool first_ = true;
    bool failed_ = false;
    size_t next_ = 0;  ///< of the bytes in buffer_
    size_t end_ = 0;
    char buffer_[65536];
};

}  // namespace tallymere

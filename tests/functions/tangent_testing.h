// Watches the memory of tangent tables.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "functions/tangent_table.h"

namespace tallymere::testing_support {

/// Counts the blocks that tangent tables take and give back while it lives; one at a time.
class TangentMemoryWatch {
public:
    TangentMemoryWatch() : saved_(tangentMemory) {
        state = {};
        tangentMemory = {Take, GiveBack};
    }
    ~TangentMemoryWatch() { tangentMemory = saved_; }
    TangentMemoryWatch(const TangentMemoryWatch&) = delete;
    TangentMemoryWatch& operator=(const TangentMemoryWatch&) = delete;

    /// From now on there is no memory.
    void Refuse() { state.refuses = true; }

    /// From now on the stop byte is the low end of the header of row 0, which is no longer 0 when a
    /// tangent number has two digits: the third one asks for a stop.
    void StopAtTheThirdNumber() { state.stops = true; }

    int BlocksTaken() const { return state.taken; }
    int BlocksHeld() const { return state.taken - state.givenBack; }
    size_t Bytes() const { return state.bytes; }

private:
    struct State {
        int taken;
        int givenBack;
        size_t bytes;
        bool refuses;
        bool stops;
    };
    static inline State state;

    static void* Take(size_t bytes) {
        if (state.refuses) {
            return nullptr;
        }
        state.taken++;
        state.bytes = bytes;
        void* block = std::malloc(bytes);
        if (state.stops) {
            numberContext.abortFlag = static_cast<uint8_t*>(block);
        }
        return block;
    }
    static void GiveBack(void* block) {
        state.givenBack++;
        if (state.stops) {
            numberContext.abortFlag = &cancelFlag;
        }
        std::free(block);
    }

    TangentMemory saved_;
};

}  // namespace tallymere::testing_support

#include "power/scheme_reading.h"

namespace voltaro {

ReadResult ReadInOrder(std::span<const Reader> readers)
{
    ReadResult result = ReadResult::Unreadable;
    for (const Reader read : readers) {
        result = ReadOrLose(read);
        if (result == ReadResult::Lost)
            break;
    }
    return result;
}

} // namespace voltaro

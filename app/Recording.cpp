#include "app/Recording.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace zorva {
namespace {

using Bytes = std::span<const std::uint8_t>;

/// A number of `count` bytes, the lowest first.
std::uint32_t Number(Bytes bytes, std::size_t at, std::size_t count) {
    std::uint32_t result = 0;
    for (std::size_t i = count; i > 0; --i) result = result << 8 | bytes[at + i - 1];
    return result;
}

bool HasName(Bytes bytes, std::size_t at, std::string_view name) {
    return bytes.size() >= at + name.size() &&
           std::equal(name.begin(), name.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

constexpr std::size_t FileHead = 12;
constexpr std::size_t ChunkHead = 8;

/// What the first chunk of that name holds; nothing when there is none or it is cut short.
std::optional<Bytes> Chunk(Bytes file, std::string_view name) {
    std::size_t at = FileHead;
    while (at + ChunkHead <= file.size()) {
        const std::size_t length = Number(file, at + 4, 4);
        const Bytes rest = file.subspan(at + ChunkHead);
        if (length > rest.size()) return std::nullopt;
        if (HasName(file, at, name)) return rest.first(length);
        at += ChunkHead + length + length % 2;
    }
    return std::nullopt;
}

bool IsOurFormat(Bytes format) {
    if (format.size() < 16) return false;
    const bool uncompressed = Number(format, 0, 2) == 1;
    const bool oneChannel = Number(format, 2, 2) == 1;
    return uncompressed && oneChannel && Number(format, 4, 4) == SampleRate &&
           Number(format, 14, 2) == 16;
}

}  // namespace

Samples ReadRecording(Bytes bytes) {
    if (!HasName(bytes, 0, "RIFF") || !HasName(bytes, 8, "WAVE")) return {};
    const std::optional<Bytes> format = Chunk(bytes, "fmt ");
    const std::optional<Bytes> data = Chunk(bytes, "data");
    if (!format || !data || !IsOurFormat(*format)) return {};
    Samples samples(data->size() / 2);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<std::int16_t>(Number(*data, 2 * i, 2));
    }
    return samples;
}

}  // namespace zorva

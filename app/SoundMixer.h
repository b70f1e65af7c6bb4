#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "app/Recording.h"

namespace zorva {

/// What is heard: one recording at a time. A new one begins at once; the one it cuts off is not
/// chopped, which would crack, but fades under it within five milliseconds. Locks nothing: its
/// owner keeps the thread that starts sounds and the one that fetches samples apart.
class SoundMixer {
public:
    static constexpr std::size_t FadeLength = SampleRate / 200;

    /// Plays a recording from its beginning. What was playing fades out.
    void Start(std::shared_ptr<const Samples> recording);

    /// Falls silent, without a fade: for a sound of which nothing was heard yet.
    void Forget();

    /// The next samples, silence after the end of the recording.
    void Fill(std::span<std::int16_t> samples);

private:
    std::shared_ptr<const Samples> recording_;
    std::size_t position_ = 0;
    /// What is left of the sounds that were cut off. Summed up, because a third sound may begin
    /// before the first has faded.
    std::array<int, FadeLength> fading_{};
    std::size_t fadingPosition_ = FadeLength;

    int NextSample();
    int NextFading();
};

}  // namespace zorva

#include "app/SoundMixer.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zorva {

void SoundMixer::Start(std::shared_ptr<const Samples> recording) {
    const bool wasHeard = position_ > 0;
    std::array<int, FadeLength> fading{};
    for (std::size_t i = 0; i < FadeLength; ++i) {
        const int left = static_cast<int>(FadeLength - i);
        const int cutOff = wasHeard ? NextSample() * left / static_cast<int>(FadeLength) : 0;
        fading[i] = cutOff + NextFading();
    }
    fading_ = fading;
    fadingPosition_ = 0;
    recording_ = std::move(recording);
    position_ = 0;
}

void SoundMixer::Forget() {
    recording_ = nullptr;
    position_ = 0;
    fadingPosition_ = FadeLength;
}

void SoundMixer::Fill(std::span<std::int16_t> samples) {
    using Limits = std::numeric_limits<std::int16_t>;
    for (std::int16_t& sample : samples) {
        const int sum = NextSample() + NextFading();
        sample = static_cast<std::int16_t>(std::clamp<int>(sum, Limits::min(), Limits::max()));
    }
}

int SoundMixer::NextSample() {
    if (recording_ == nullptr || position_ >= recording_->size()) return 0;
    return (*recording_)[position_++];
}

int SoundMixer::NextFading() {
    return fadingPosition_ < FadeLength ? fading_[fadingPosition_++] : 0;
}

}  // namespace zorva

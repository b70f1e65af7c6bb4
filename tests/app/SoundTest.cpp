#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>

#include "app/Recording.h"
#include "app/SoundMixer.h"
#include "app/SoundPlayer.h"

namespace zorva {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

std::vector<std::uint8_t> BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::uint8_t> WaveFileOf(Short id) {
    const std::string name = (id < 10 ? "0" : "") + std::to_string(id) + ".wav";
    return BytesOf(std::filesystem::path(ZORVA_TEST_DATA "/../../assets/sounds") / name);
}

Samples RecordingOf(Short id) {
    return ReadRecording(WaveFileOf(id));
}

milliseconds LengthOf(const Samples& samples) {
    return milliseconds(samples.size() * 1000 / SampleRate);
}

/// 1 for the same sound, near 0 for another: the cosine between both, from their beginnings.
double Likeness(std::span<const std::int16_t> heard, const Samples& recording) {
    double product = 0, heardSquare = 0, recordingSquare = 0;
    for (std::size_t i = 0; i < std::min(heard.size(), recording.size()); ++i) {
        product += double(heard[i]) * recording[i];
        heardSquare += double(heard[i]) * heard[i];
    }
    for (const std::int16_t sample : recording) recordingSquare += double(sample) * sample;
    return product / std::sqrt(std::max(1.0, heardSquare * recordingSquare));
}

/// Where the recording is heard, sample for sample, from `from` on; npos when it is not.
constexpr std::size_t npos = static_cast<std::size_t>(-1);
std::size_t Find(const Samples& heard, std::span<const std::int16_t> part, std::size_t from = 0) {
    const auto begin = heard.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(begin, heard.end(), part.begin(), part.end());
    return found == heard.end() ? npos : static_cast<std::size_t>(found - heard.begin());
}

int LargestStep(std::span<const std::int16_t> samples) {
    int largest = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) {
        largest = std::max(largest, std::abs(samples[i] - samples[i - 1]));
    }
    return largest;
}

// --- The recordings ---

class EachRecording : public testing::TestWithParam<Short> {};

TEST_P(EachRecording, IsThereAndWellMade) {
    const Short id = GetParam();
    const Samples samples = RecordingOf(id);
    ASSERT_FALSE(samples.empty());
    const milliseconds longest(id == 13 ? 120 : id == 14 ? 3000 : 600);
    EXPECT_LE(LengthOf(samples), longest);
    const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
    constexpr double threeDecibelsBelow = 32768 * 0.7079;
    EXPECT_LE(std::max(-*low, +*high), threeDecibelsBelow);
    EXPECT_GE(std::max(-*low, +*high), 3000) << "too soft to be heard beside the others";
    EXPECT_LE(std::abs(samples.front()), 8) << "begins with a click";
    EXPECT_LE(std::abs(samples.back()), 8) << "ends with a click";
}

TEST_P(EachRecording, IsUnlikeAllOthers) {
    const Samples samples = RecordingOf(GetParam());
    for (Short other = SoundPlayer::FirstSound; other <= SoundPlayer::LastSound; ++other) {
        if (other == GetParam()) continue;
        EXPECT_LT(std::abs(Likeness(samples, RecordingOf(other))), 0.8) << "like " << other;
    }
}

INSTANTIATE_TEST_SUITE_P(Sounds, EachRecording,
                         testing::Range(SoundPlayer::FirstSound, Short(SoundPlayer::LastSound + 1)),
                         testing::PrintToStringParamName());

struct Damage {
    const char* name;
    std::size_t at;  ///< the byte that is wrong; -1: the file is cut to `value` bytes
    std::uint8_t value;
};

constexpr Damage damages[] = {
    {"nothing at all", npos, 0},
    {"cut in its head", npos, 9},
    {"cut before its samples", npos, 40},
    {"cut within its samples", npos, 200},
    {"another kind of file", 0, 'X'},
    {"compressed", 20, 2},
    {"two channels", 22, 2},
    {"another speed", 24, 0},
    {"eight bits", 34, 8},
    {"a chunk of four thousand million bytes", 19, 0xFF},
    {"more samples than bytes", 43, 0x7F},
};

TEST(Recording, RefusesWhatItCannotPlay) {
    for (const Damage& damage : damages) {
        std::vector<std::uint8_t> bytes = WaveFileOf(13);
        ASSERT_GT(bytes.size(), 200u);
        if (damage.at == npos) {
            bytes.resize(damage.value);
        } else {
            bytes[damage.at] = damage.value;
        }
        EXPECT_TRUE(ReadRecording(bytes).empty()) << damage.name;
    }
}

TEST(Recording, PassesOverChunksItDoesNotKnow) {
    std::vector<std::uint8_t> bytes = WaveFileOf(13);
    const std::uint8_t note[] = {'n', 'o', 't', 'e', 3, 0, 0, 0, 'a', 'b', 'c', 0};
    bytes.insert(bytes.begin() + 36, std::begin(note), std::end(note));
    EXPECT_EQ(ReadRecording(bytes), RecordingOf(13));
}

// --- The mixer ---

std::shared_ptr<const Samples> Constant(std::int16_t value, std::size_t length = 10000) {
    return std::make_shared<const Samples>(length, value);
}

TEST(SoundMixer, FadesWhatItCutsOff) {
    SoundMixer mixer;
    Samples heard(1000);
    mixer.Start(Constant(22000));
    mixer.Fill(std::span(heard).first(100));
    mixer.Start(Constant(0));
    mixer.Fill(std::span(heard).subspan(100));
    EXPECT_EQ(heard[99], 22000);
    EXPECT_LE(LargestStep(heard), 22000 / 200) << "cracks";
    EXPECT_EQ(heard[100 + SoundMixer::FadeLength], 0) << "fades too long";
}

TEST(SoundMixer, FadesOnWhenCutOffTwice) {
    SoundMixer mixer;
    Samples heard(1000);
    mixer.Start(Constant(20000));
    mixer.Fill(std::span(heard).first(100));
    mixer.Start(Constant(0));
    mixer.Fill(std::span(heard).subspan(100, 60));
    mixer.Start(Constant(0));
    mixer.Fill(std::span(heard).subspan(160));
    EXPECT_LE(LargestStep(heard), 20000 / 200) << "the first sound's fade was chopped";
}

TEST(SoundMixer, LeavesNothingOfASoundThatWasNotHeardYet) {
    SoundMixer mixer;
    Samples heard(500);
    mixer.Start(Constant(20000));
    mixer.Start(Constant(100));
    mixer.Fill(heard);
    EXPECT_EQ(heard, Samples(500, 100));
    mixer.Forget();
    mixer.Fill(heard);
    EXPECT_EQ(heard, Samples(500, 0));
}

TEST(SoundMixer, StaysWithinSixteenBitsAndEndsInSilence) {
    SoundMixer mixer;
    Samples heard(400);
    mixer.Start(Constant(32000));
    mixer.Fill(std::span(heard).first(10));
    mixer.Start(Constant(32000, 300));
    mixer.Fill(heard);
    EXPECT_EQ(heard[0], 32767);
    EXPECT_EQ(heard[299], 32000);
    EXPECT_EQ(heard[300], 0);
}

// --- The player, heard through a file in place of the loudspeakers ---

class Loudspeakers : public testing::Test {
protected:
    void SetUp() override {
        file_ = std::filesystem::path(testing::TempDir()) /
                ("zorva-sound-" + std::to_string(Clock::now().time_since_epoch().count()) + ".raw");
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", file_.c_str(), 1);
    }
    void TearDown() override {
        std::filesystem::remove(file_);
        unsetenv("SDL_AUDIODRIVER");
        unsetenv("SDL_DISKAUDIOFILE");
    }

    Samples Heard() const {
        const std::vector<std::uint8_t> bytes = BytesOf(file_);
        Samples samples(bytes.size() / 2);
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i] = static_cast<std::int16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
        }
        return samples;
    }

    /// Where in the file that is heard from `from` on; waits for it, npos when it does not come.
    std::size_t WaitFor(std::span<const std::int16_t> part, std::size_t from = 0) const {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(8);
        while (Clock::now() < end) {
            const std::size_t found = Find(Heard(), part, from);
            if (found != npos) return found;
            std::this_thread::sleep_for(milliseconds(20));
        }
        return npos;
    }

    /// Waits until nothing more is played, not even silence; false when that does not come.
    bool WaitUntilClosed() const {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(8);
        while (Clock::now() < end) {
            const std::size_t before = Heard().size();
            std::this_thread::sleep_for(milliseconds(250));
            if (before > 0 && Heard().size() == before) return true;
        }
        return false;
    }

    std::filesystem::path file_;
};

TEST_F(Loudspeakers, PlayEachSoundAsItWasRecorded) {
    std::size_t at = 0;
    const Clock::time_point begin = Clock::now();
    {
        SoundPlayer player(WaveFileOf);
        player.Prepare();
        for (const Short id : {13, 10, 7}) {
            player.Play(id);
            const Samples recording = RecordingOf(id);
            at = WaitFor(recording, at);
            ASSERT_NE(at, npos) << "sound " << id << " was not heard in its turn";
            at += recording.size();
        }
    }
    const Samples heard = Heard();
    const std::chrono::duration<double> elapsed = Clock::now() - begin;
    EXPECT_LT(static_cast<double>(heard.size()), 1.4 * SampleRate * elapsed.count()) << "too fast";
    EXPECT_TRUE(std::all_of(heard.begin() + static_cast<std::ptrdiff_t>(at), heard.end(),
                            [](std::int16_t sample) { return sample == 0; }));
}

TEST_F(Loudspeakers, PlayTheNewSoundAndFadeTheOldOne) {
    const Samples fanfare = RecordingOf(14), home = RecordingOf(11);
    SoundPlayer player(WaveFileOf);
    player.Play(14);
    const std::size_t begin = WaitFor(std::span(fanfare).first(10000));
    ASSERT_NE(begin, npos) << "the first sound was not heard";
    player.Play(11);
    const std::size_t clear = WaitFor(std::span(home).subspan(SoundMixer::FadeLength), begin);
    ASSERT_NE(clear, npos) << "the second sound was not heard alone";
    const Samples heard = Heard();
    const std::size_t cut = clear - SoundMixer::FadeLength;
    ASSERT_GT(cut, begin);
    EXPECT_LT(cut, begin + fanfare.size() / 2) << "not cut off";
    EXPECT_EQ(Find(heard, std::span(fanfare).first(cut - begin)), begin) << "gone before it was cut off";
    EXPECT_LE(LargestStep(std::span(heard).subspan(cut - 1, SoundMixer::FadeLength + 1)),
              LargestStep(fanfare) + LargestStep(home))
        << "cracks";
}

TEST_F(Loudspeakers, AreClosedAfterASilenceAndOpenedAgain) {
    SoundPlayer player(WaveFileOf, milliseconds(100));
    player.Play(13);
    EXPECT_TRUE(WaitUntilClosed()) << "goes on while nothing is to be heard";
    EXPECT_NE(Find(Heard(), RecordingOf(13)), npos) << "closed before the end of the sound";
    player.Play(10);
    EXPECT_NE(WaitFor(RecordingOf(10)), npos) << "mute after a silence";
}

TEST_F(Loudspeakers, LeaveTheSignalsThatEndTheProgramAlone) {
    // Whoever started the test may have had them ignored: then nobody would take them over.
    for (const int number : {SIGINT, SIGTERM}) signal(number, SIG_DFL);
    SoundPlayer player(WaveFileOf);
    player.Play(13);
    ASSERT_NE(WaitFor(RecordingOf(13)), npos);
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction action {};
        ASSERT_EQ(sigaction(number, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << "signal " << number;
    }
}

TEST_F(Loudspeakers, AreLeftAloneUntilThereIsSomethingToHear) {
    {
        SoundPlayer player(WaveFileOf);
        std::this_thread::sleep_for(milliseconds(100));
    }
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(Loudspeakers, SurviveIdsAndBytesThatAreNoSound) {
    int asked = 0;
    {
        SoundPlayer player([&asked](Short) {
            ++asked;
            return std::vector<std::uint8_t>{'n', 'o'};
        });
        for (const Short id : {-1, 0, 20, 32767, -32768}) player.Play(id);
        EXPECT_EQ(asked, 0) << "an id outside 1..19 has no recording";
        player.Play(1);
        player.Play(1);
        EXPECT_EQ(asked, 1) << "a recording is fetched once";
        std::this_thread::sleep_for(milliseconds(150));
    }
    const Samples heard = Heard();
    EXPECT_EQ(std::count(heard.begin(), heard.end(), 0), static_cast<std::ptrdiff_t>(heard.size()));
}

TEST_F(Loudspeakers, NeverHoldUpSoundsInQuickSuccession) {
    SoundPlayer player(WaveFileOf, milliseconds(1));
    int slow = 0;
    for (int i = 0; i < 400; ++i) {
        const Clock::time_point before = Clock::now();
        player.Play(13);
        slow += Clock::now() - before > milliseconds(10) ? 1 : 0;
        // At times so long that the next sound comes while the device is being closed.
        std::this_thread::sleep_for(milliseconds(i % 20 == 0 ? 92 + i / 20 : 1));
    }
    EXPECT_LE(slow, 4) << "waits for the device";
}

TEST(NoLoudspeakers, AreSilenceWithoutDelayOrWords) {
    setenv("SDL_AUDIODRIVER", "nonexistent", 1);
    testing::internal::CaptureStderr();
    int asked = 0;
    const Clock::time_point before = Clock::now();
    {
        SoundPlayer player([&asked](Short id) { return ++asked, WaveFileOf(id); });
        player.Play(5);
        std::this_thread::sleep_for(milliseconds(200));
        asked = 0;
        for (Short id = 1; id <= 19; ++id) player.Play(id);
    }
    EXPECT_LT(Clock::now() - before, milliseconds(500));
    EXPECT_EQ(asked, 0) << "fetches recordings that will not be heard";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    unsetenv("SDL_AUDIODRIVER");
}

TEST(NoLoudspeakers, AreNotSpokenOfByTheSoundLibraries) {
    setenv("SDL_AUDIODRIVER", "alsa", 1);
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    testing::internal::CaptureStderr();
    {
        SoundPlayer player(WaveFileOf);
        player.Play(5);
        std::this_thread::sleep_for(milliseconds(200));
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    unsetenv("ALSA_CONFIG_PATH");
    unsetenv("SDL_AUDIODRIVER");
}

}  // namespace
}  // namespace zorva

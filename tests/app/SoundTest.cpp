#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>
#include <thread>

#include "app/Recording.h"
#include "app/SoundMixer.h"
#include "app/SoundPlayer.h"
#include "tests/support/Files.h"

namespace zorva {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

std::vector<std::uint8_t> BytesOf(const std::filesystem::path& path) {
    const std::string bytes = test::FileBytes(path);
    return {bytes.begin(), bytes.end()};
}

std::vector<std::uint8_t> WaveFileOf(Sound sound) {
    const auto id = static_cast<Short>(sound);
    const std::string name = (id < 10 ? "0" : "") + std::to_string(id) + ".wav";
    return BytesOf(std::filesystem::path(ZORVA_TEST_DATA "/../../assets/sounds") / name);
}

Samples RecordingOf(Short id) {
    return ReadRecording(WaveFileOf(static_cast<Sound>(id)));
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

class EachRecording : public testing::TestWithParam<Short> {};

TEST_P(EachRecording, IsThereAndWellMade) {
    const Short id = GetParam();
    const Samples samples = RecordingOf(id);
    ASSERT_FALSE(samples.empty());
    const std::size_t longest = id == 13 ? 120 : id == 14 ? 3000 : 600;  // milliseconds
    EXPECT_LE(samples.size() * 1000 / SampleRate, longest);
    const auto [low, high] = std::minmax_element(samples.begin(), samples.end());
    constexpr double threeDecibelsBelow = 32768 * 0.7079;
    EXPECT_LE(std::max(-*low, +*high), threeDecibelsBelow);
    EXPECT_GE(std::max(-*low, +*high), 3000) << "too soft to be heard beside the others";
    EXPECT_LE(std::abs(samples.front()), 8) << "begins with a click";
    EXPECT_LE(std::abs(samples.back()), 8) << "ends with a click";
}

INSTANTIATE_TEST_SUITE_P(Sounds, EachRecording, testing::Range(FirstSound, Short(LastSound + 1)),
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
        std::vector<std::uint8_t> bytes = WaveFileOf(Sound::Step);
        if (damage.at == npos) bytes.resize(damage.value);
        if (damage.at != npos) bytes.at(damage.at) = damage.value;
        EXPECT_TRUE(ReadRecording(bytes).empty()) << damage.name;
    }
}

TEST(Recording, PassesOverChunksItDoesNotKnow) {
    std::vector<std::uint8_t> bytes = WaveFileOf(Sound::Step);
    const std::uint8_t note[] = {'n', 'o', 't', 'e', 3, 0, 0, 0, 'a', 'b', 'c', 0};
    bytes.insert(bytes.begin() + 36, std::begin(note), std::end(note));
    EXPECT_EQ(ReadRecording(bytes), RecordingOf(13));
}

std::shared_ptr<const Samples> Constant(std::int16_t value, std::size_t length = 10000) {
    return std::make_shared<const Samples>(length, value);
}

TEST(SoundMixer, FadesWhatItCutsOff) {
    for (const bool twice : {false, true}) {
        SoundMixer mixer;
        Samples heard(1000);
        mixer.Start(Constant(20000));
        mixer.Fill(std::span(heard).first(100));
        mixer.Start(Constant(0));
        mixer.Fill(std::span(heard).subspan(100, 60));
        if (twice) mixer.Start(Constant(0));
        mixer.Fill(std::span(heard).subspan(160));
        EXPECT_EQ(heard[99], 20000);
        EXPECT_LE(LargestStep(heard), 20000 / 200) << "cracks";
        EXPECT_EQ(heard[160 + SoundMixer::FadeLength], 0) << "fades too long";
    }
}

TEST(SoundMixer, LeavesNothingOfWhatWasNotHeardYetOrIsForgotten) {
    SoundMixer mixer;
    Samples heard(100);
    mixer.Start(Constant(20000));
    mixer.Start(Constant(100));
    mixer.Fill(heard);
    EXPECT_EQ(heard, Samples(100, 100));
    mixer.Start(Constant(200));
    mixer.Forget();
    mixer.Fill(heard);
    EXPECT_EQ(heard, Samples(100, 0));
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

class Loudspeakers : public testing::Test {
protected:
    void SetUp() override {
        setenv("SDL_AUDIODRIVER", "disk", 1);
        setenv("SDL_DISKAUDIOFILE", file_.c_str(), 1);
    }
    void TearDown() override {
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

    /// Looks again and again until it is so; false when that does not come.
    template <typename IsSo>
    static bool Wait(IsSo isSo) {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(8);
        while (Clock::now() < end) {
            if (isSo()) return true;
            std::this_thread::sleep_for(milliseconds(20));
        }
        return false;
    }

    /// Where in the file that is heard from `from` on; npos when it does not come.
    std::size_t WaitFor(std::span<const std::int16_t> part, std::size_t from = 0) const {
        std::size_t found = npos;
        Wait([&] { return (found = Find(Heard(), part, from)) != npos; });
        return found;
    }

    const test::TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "heard.raw";
};

TEST_F(Loudspeakers, PlayEachSoundAsItWasRecorded) {
    std::size_t at = 0;
    const Clock::time_point begin = Clock::now();
    {
        SoundPlayer player(WaveFileOf);
        player.Prepare();
        for (const Short id : {13, 10, 7}) {
            player.Play(static_cast<Sound>(id));
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

TEST_F(Loudspeakers, AreClosedAfterASilenceAndOpenedAgain) {
    SoundPlayer player(WaveFileOf, milliseconds(100));
    player.Play(static_cast<Sound>(13));
    EXPECT_TRUE(Wait([&] {
        const std::size_t before = Heard().size();
        std::this_thread::sleep_for(milliseconds(250));
        return before > 0 && Heard().size() == before;
    })) << "not even silence is played any more";
    EXPECT_NE(Find(Heard(), RecordingOf(13)), npos) << "closed before the end of the sound";
    player.Play(static_cast<Sound>(10));
    EXPECT_NE(WaitFor(RecordingOf(10)), npos) << "mute after a silence";
}

TEST_F(Loudspeakers, LeaveTheSignalsThatEndTheProgramAlone) {
    // Whoever started the test may have had them ignored: then nobody would take them over.
    for (const int number : {SIGINT, SIGTERM}) signal(number, SIG_DFL);
    SoundPlayer player(WaveFileOf);
    player.Play(static_cast<Sound>(13));
    ASSERT_NE(WaitFor(RecordingOf(13)), npos);
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction action {};
        ASSERT_EQ(sigaction(number, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << "signal " << number;
    }
}

TEST_F(Loudspeakers, AreLeftAloneByWhatIsNoSound) {
    int asked = 0;
    SoundPlayer player([&asked](Sound) {
        ++asked;
        return std::vector<std::uint8_t>{'n', 'o'};
    });
    EXPECT_EQ(asked, 0) << "an id that has no recording";
    std::this_thread::sleep_for(milliseconds(100));
    EXPECT_FALSE(std::filesystem::exists(file_)) << "opened before there is anything to hear";
    player.Play(static_cast<Sound>(1));
    player.Play(static_cast<Sound>(1));
    EXPECT_EQ(asked, 1) << "a recording is fetched once";
    ASSERT_TRUE(Wait([&] { return Heard().size() > 1000; }));
    const Samples heard = Heard();
    EXPECT_EQ(heard, Samples(heard.size(), 0));
}

TEST_F(Loudspeakers, NeverHoldUpSoundsInQuickSuccession) {
    SoundPlayer player(WaveFileOf, milliseconds(1));
    int slow = 0;
    for (int i = 0; i < 400; ++i) {
        const Clock::time_point before = Clock::now();
        player.Play(static_cast<Sound>(13));
        slow += Clock::now() - before > milliseconds(10) ? 1 : 0;
        // At times so long that the next sound comes while the device is being closed.
        std::this_thread::sleep_for(milliseconds(i % 20 == 0 ? 92 + i / 20 : 1));
    }
    EXPECT_LE(slow, 4) << "waits for the device";
}

TEST(NoLoudspeakers, AreSilenceWithoutDelayOrWords) {
    // The second is there but does not work: its library would speak of it.
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    for (const char* driver : {"nonexistent", "alsa"}) {
        setenv("SDL_AUDIODRIVER", driver, 1);
        testing::internal::CaptureStderr();
        int asked = 0;
        const Clock::time_point before = Clock::now();
        {
            SoundPlayer player([&asked](Sound sound) { return ++asked, WaveFileOf(sound); });
            player.Play(static_cast<Sound>(5));
            std::this_thread::sleep_for(milliseconds(200));
            asked = 0;
            for (Short id = 1; id <= 19; ++id) player.Play(static_cast<Sound>(id));
        }
        EXPECT_LT(Clock::now() - before, milliseconds(500));
        EXPECT_EQ(asked, 0) << "fetches recordings that will not be heard";
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << driver;
    }
    unsetenv("ALSA_CONFIG_PATH");
    unsetenv("SDL_AUDIODRIVER");
}

}  // namespace
}  // namespace zorva

#include <fcntl.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>
#include <tuple>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <thread>

#include "app/SoundClip.h"
#include "app/SoundDevice.h"
#include "app/SoundPlayer.h"
#include "tests/support/Files.h"

namespace zorva {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;
using Part = std::span<const std::int16_t>;

constexpr std::size_t npos = static_cast<std::size_t>(-1);
constexpr std::size_t WavHead = 44;
constexpr std::size_t Fade = SampleRate / 200;
constexpr std::size_t Shortest = SampleRate * 6 / 100;  // that is heard of a sound

std::string WavFileOf(Sound sound) {
    const auto id = static_cast<Short>(sound);
    const std::string name = (id < 10 ? "0" : "") + std::to_string(id) + ".wav";
    return test::FileBytes(std::filesystem::path(ZORVA_TEST_DATA "/../../assets/sounds") / name);
}

/// The bytes from `begin` on as samples.
SoundClip SamplesOf(const std::string& bytes, std::size_t begin = 0) {
    SoundClip samples;
    for (std::size_t i = begin; i + 1 < bytes.size(); i += 2) {
        std::memcpy(&samples.emplace_back(), &bytes[i], 2);
    }
    return samples;
}

TEST(SoundClip, EachSoundPlaysItsRecording) {
    for (Short id = FirstSound; id <= LastSound; ++id) {
        const auto sound = static_cast<Sound>(id);
        EXPECT_EQ(LoadSoundClip(sound), SamplesOf(WavFileOf(sound), WavHead)) << id;
    }
}

TEST(SoundClip, DamagedAndForeignFilesAreSilence) {
    // The byte that is wrong; npos: the file is cut to that many bytes.
    const std::tuple<const char*, std::size_t, std::uint8_t> damages[] = {
        {"cut in its head", npos, 9},     {"cut within its samples", npos, 200},
        {"another kind of file", 0, 'X'}, {"two channels", 22, 2},
        {"another sample rate", 24, 0},   {"more samples than bytes", 43, 0x7F},
    };
    for (const auto& [name, at, value] : damages) {
        std::string wav = WavFileOf(Sound::Step);
        if (at == npos) wav.resize(value);
        if (at != npos) wav.at(at) = static_cast<char>(value);
        const SoundClip clip = ReadSoundClip({reinterpret_cast<std::uint8_t*>(wav.data()), wav.size()});
        EXPECT_TRUE(clip.empty()) << name;
    }
}

/// The player with SDL's disk driver, which writes what would be heard into a file, in real time.
class Loudspeakers : public testing::Test {
protected:
    void SetUp() override {
        setenv("SDL_DISKAUDIOFILE", file_.c_str(), 1);
        setenv("SDL_AUDIODRIVER", "disk", 1);
        // Whoever started the test may have had them ignored: then SDL would not take them over.
        for (const int number : {SIGINT, SIGTERM}) signal(number, SIG_DFL);
        signal(SIGPIPE, SIG_IGN);
    }
    void TearDown() override {
        for (const int number : {SIGINT, SIGTERM}) {
            EXPECT_EQ(signal(number, SIG_DFL), SIG_DFL) << "would not end the program: " << number;
        }
        unsetenv("ALSA_CONFIG_PATH");
    }

    SoundClip Heard() const { return SamplesOf(test::FileBytes(file_)); }

    /// Looks again and again until it is so; false when that does not come.
    static bool Wait(const std::function<bool()>& isSo) {
        const Clock::time_point end = Clock::now() + std::chrono::seconds(20);
        while (!isSo()) {
            if (Clock::now() > end) return false;
            std::this_thread::sleep_for(milliseconds(20));
        }
        return true;
    }

    /// Where exactly these samples are heard, not before `from`; npos when they are not.
    std::size_t Find(Part part, std::size_t from = 0) const {
        const SoundClip heard = Heard();
        const auto begin = heard.begin() + static_cast<std::ptrdiff_t>(from);
        const auto found = std::search(begin, heard.end(), part.begin(), part.end());
        return found == heard.end() ? npos : static_cast<std::size_t>(found - heard.begin());
    }
    std::size_t WaitFor(Part part, std::size_t from = 0) const {
        return Wait([&] { return Find(part, from) != npos; }) ? Find(part, from) : npos;
    }

    /// Plays a sound until it is heard: on a busy machine the device may open too late for the first.
    bool IsHeard(SoundPlayer& player, Sound sound) const {
        const SoundClip clip = LoadSoundClip(sound);
        return Wait([&] {
            player.Play(sound);
            std::this_thread::sleep_for(milliseconds(600));
            return Find(clip) != npos;
        });
    }

    const test::TemporaryFolder folder_;
    const std::filesystem::path file_ = folder_ / "heard.raw";
};

TEST_F(Loudspeakers, FadeTheOldSoundUnderTheNewOne) {
    const SoundClip victory = LoadSoundClip(Sound::Victory);
    const SoundClip refusal = LoadSoundClip(Sound::Refusal);
    SoundDevice device;
    ASSERT_TRUE(device.Open());
    device.Play(victory);
    device.Play(LoadSoundClip(Sound::Accept));  // replaced while it waits
    device.Play(refusal);
    const std::size_t faded = WaitFor(Part(refusal).subspan(Fade, 200));
    ASSERT_NE(faded, npos) << "the fade is longer than 5 ms";
    const std::size_t cut = faded - Fade;
    EXPECT_EQ(Find(Part(victory).first(Shortest)), cut - Shortest);
    EXPECT_EQ(Heard()[cut], victory[Shortest] + refusal[0]) << "chopped, which clicks";
}

TEST_F(Loudspeakers, GiveEachSoundItsTimeBeforeTheNextOneCutsItOff) {
    const auto beginOf = [](Sound sound) {
        const SoundClip clip = LoadSoundClip(sound);
        return SoundClip(clip.begin() + Fade, clip.begin() + Shortest);
    };
    SoundPlayer player;
    ASSERT_TRUE(IsHeard(player, Sound::Step)) << "the device is open from here on";
    for (Short id = FirstSound; id <= LastSound; ++id) {
        const auto sound = static_cast<Sound>(id);
        const auto next = sound == Sound::Step ? Sound::Refusal : Sound::Step;
        const std::size_t before = Heard().size();
        player.Play(sound);
        player.Play(next);
        EXPECT_NE(WaitFor(beginOf(next), before), npos);
        EXPECT_NE(Find(beginOf(sound), before), npos) << "cut off: " << id;
    }
}

TEST_F(Loudspeakers, CloseAfterASilenceAndOpenAgain) {
    SoundPlayer player(milliseconds(100));
    player.Prepare();
    EXPECT_TRUE(Wait([this] { return std::filesystem::exists(file_); })) << "not prepared";
    EXPECT_TRUE(IsHeard(player, Sound::Refusal)) << "closed before the end of the sound";
    std::filesystem::remove(file_);  // a device that stays open does not make it again
    EXPECT_TRUE(IsHeard(player, Sound::Refusal)) << "not closed, or mute after a silence";
}

TEST_F(Loudspeakers, AreOpenedAgainWhenTheyWereLost) {
    // Gives way at the first samples, like a plug that is pulled.
    setenv("SDL_DISKAUDIOFILE", "/dev/full", 1);
    SoundPlayer player;
    player.Play(Sound::Step);
    std::this_thread::sleep_for(milliseconds(500));
    setenv("SDL_DISKAUDIOFILE", file_.c_str(), 1);
    EXPECT_TRUE(IsHeard(player, Sound::Step));
}

TEST_F(Loudspeakers, ThatAreMissingAreSilenceForGoodWithoutAWord) {
    setenv("SDL_AUDIODRIVER", "alsa", 1);
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);  // the ALSA library would print what it misses
    testing::internal::CaptureStderr();
    SoundPlayer player;
    player.Play(Sound::Step);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    setenv("SDL_AUDIODRIVER", "disk", 1);
    player.Play(Sound::Step);
    std::this_thread::sleep_for(milliseconds(500));
    EXPECT_FALSE(std::filesystem::exists(file_)) << "tried more than once";
}

// The last test: its second player leaves a thread behind, which ends a little later.
TEST_F(Loudspeakers, ThatHangHoldNobodyUpAndDropWhatIsTooLate) {
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);  // opening it waits for a reader
    {
        SoundPlayer player;
        player.Play(Sound::Step);
        std::this_thread::sleep_for(milliseconds(400));
        const int reader = open(file_.c_str(), O_RDONLY);
        SoundClip heard(10000, 1);
        for (std::size_t i = 0; i < heard.size(); ++i) {
            ASSERT_EQ(read(reader, &heard[i], sizeof heard[i]), 2);
        }
        EXPECT_EQ(heard, SoundClip(heard.size(), 0)) << "played a sound that nobody waits for any more";
        close(reader);
    }
    Clock::time_point goodbye;
    {
        SoundPlayer player;
        player.Play(Sound::Step);
        std::this_thread::sleep_for(milliseconds(200));
        goodbye = Clock::now();
    }
    EXPECT_LT(Clock::now() - goodbye, std::chrono::seconds(5));
    close(open(file_.c_str(), O_RDONLY | O_NONBLOCK));  // lets the thread go
}

}  // namespace
}  // namespace zorva

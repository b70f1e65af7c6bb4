#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <set>
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

TEST(SoundClip, EachSoundHasAWellMadeClipOfItsOwn) {
    std::set<SoundClip> different;
    for (Short id = FirstSound; id <= LastSound; ++id) {
        SCOPED_TRACE(id);
        const auto sound = static_cast<Sound>(id);
        const SoundClip clip = LoadSoundClip(sound);
        ASSERT_FALSE(clip.empty());
        EXPECT_EQ(clip, SamplesOf(WavFileOf(sound), WavHead)) << "another sound's file";
        EXPECT_TRUE(different.insert(clip).second) << "sounds like another";
        const std::size_t longest = sound == Sound::Step      ? 120
                                    : sound == Sound::Victory ? 3000
                                                              : 600;  // milliseconds
        EXPECT_LE(clip.size() * 1000 / SampleRate, longest);
        const auto [low, high] = std::minmax_element(clip.begin(), clip.end());
        const int peak = std::max(-*low, +*high);
        EXPECT_LE(peak, 32768 * 0.7079) << "nearer than 3 dB to full scale";
        EXPECT_GE(peak, 3000) << "too soft to be heard beside the others";
        EXPECT_LE(std::abs(clip.front()), 8) << "begins with a click";
        EXPECT_LE(std::abs(clip.back()), 8) << "ends with a click";
    }
}

TEST(SoundClip, DamagedAndForeignFilesAreSilence) {
    struct Damage {
        const char* name;
        std::size_t at;  ///< the byte that is wrong; npos: the file is cut to `value` bytes
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
        {"another sample rate", 24, 0},
        {"eight bits", 34, 8},
        {"a chunk of four thousand million bytes", 19, 0xFF},
        {"more samples than bytes", 43, 0x7F},
    };
    for (const Damage& damage : damages) {
        std::string wav = WavFileOf(Sound::Step);
        if (damage.at == npos) wav.resize(damage.value);
        if (damage.at != npos) wav.at(damage.at) = static_cast<char>(damage.value);
        const SoundClip clip = ReadSoundClip({reinterpret_cast<std::uint8_t*>(wav.data()), wav.size()});
        EXPECT_TRUE(clip.empty()) << damage.name;
    }
}

/// The player with SDL's disk driver, which writes what would be heard into a file, in real time.
class Loudspeakers : public testing::Test {
protected:
    void SetUp() override {
        UseFile(file_);
        setenv("SDL_AUDIODRIVER", "disk", 1);
        // Whoever started the test may have had them ignored: then SDL would not take them over.
        for (const int number : {SIGINT, SIGTERM}) signal(number, SIG_DFL);
        signal(SIGPIPE, SIG_IGN);
    }
    void TearDown() override {
        for (const int number : {SIGINT, SIGTERM}) {
            EXPECT_EQ(signal(number, SIG_DFL), SIG_DFL) << "would not end the program: " << number;
        }
        for (const char* name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "SDL_DISKAUDIODELAY"}) {
            unsetenv(name);
        }
    }

    static void UseFile(const std::filesystem::path& file) {
        setenv("SDL_DISKAUDIOFILE", file.c_str(), 1);
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

    /// Where exactly these samples are heard; npos when they are not.
    std::size_t Find(Part part) const {
        const SoundClip heard = Heard();
        const auto found = std::search(heard.begin(), heard.end(), part.begin(), part.end());
        return found == heard.end() ? npos : static_cast<std::size_t>(found - heard.begin());
    }
    std::size_t WaitFor(Part part) const {
        Wait([&] { return Find(part) != npos; });
        return Find(part);
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

TEST_F(Loudspeakers, PlayANewSoundInPlaceOfTheOldOne) {
    const SoundClip refusal = LoadSoundClip(Sound::Refusal);
    SoundPlayer player;
    player.Prepare();
    ASSERT_TRUE(Wait([this] { return !Heard().empty(); })) << "not open before the first sound";
    player.Play(Sound::Victory);
    ASSERT_NE(WaitFor(Part(LoadSoundClip(Sound::Victory)).first(10000)), npos);
    player.Play(Sound::Refusal);
    const std::size_t faded = WaitFor(Part(refusal).subspan(Fade));
    ASSERT_NE(faded, npos) << "mixed with the old sound, or the fade is longer than 5 ms";
    const std::size_t end = faded + refusal.size() - Fade;
    ASSERT_TRUE(Wait([&] { return Heard().size() > end + 5000; }));
    const SoundClip heard = Heard();
    const bool isSilent = std::all_of(heard.begin() + static_cast<std::ptrdiff_t>(end), heard.end(),
                                      [](std::int16_t sample) { return sample == 0; });
    EXPECT_TRUE(isSilent) << "the old sound goes on after the new one";
}

TEST_F(Loudspeakers, FadeTheOldSoundEvenIfTwoNewOnesComeAtOnce) {
    setenv("SDL_DISKAUDIODELAY", "300", 1);  // between two fetches, so that all goes on between them
    const SoundClip victory = LoadSoundClip(Sound::Victory);
    const SoundClip refusal = LoadSoundClip(Sound::Refusal);
    SoundDevice device;
    ASSERT_TRUE(device.Open());
    device.Play(victory);
    const std::size_t begin = WaitFor(Part(victory).first(500));
    ASSERT_NE(begin, npos);
    device.Play(LoadSoundClip(Sound::Accept));
    device.Play(refusal);
    const std::size_t faded = WaitFor(Part(refusal).subspan(Fade, 200));
    ASSERT_NE(faded, npos);
    const std::size_t cut = faded - Fade;
    ASSERT_LT(cut - begin, victory.size());
    EXPECT_EQ(Heard()[cut], victory[cut - begin] + refusal[0]) << "chopped, which clicks";
}

TEST_F(Loudspeakers, CloseAfterASilenceAndOpenAgain) {
    SoundPlayer player(milliseconds(100));
    EXPECT_TRUE(IsHeard(player, Sound::Refusal)) << "closed before the end of the sound";
    std::filesystem::remove(file_);  // a device that stays open does not make it again
    EXPECT_TRUE(IsHeard(player, Sound::Refusal)) << "not closed, or mute after a silence";
}

TEST_F(Loudspeakers, AreOpenedAgainWhenTheyWereLost) {
    UseFile("/dev/full");  // gives way at the first samples, like a plug that is pulled
    SoundPlayer player;
    player.Play(Sound::Step);
    std::this_thread::sleep_for(milliseconds(500));
    UseFile(file_);
    EXPECT_TRUE(IsHeard(player, Sound::Step));
}

TEST_F(Loudspeakers, ThatAreMissingAreSilenceForGoodWithoutAWord) {
    // The second is there but does not work: the ALSA library would speak of it.
    setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
    for (const char* driver : {"nonexistent", "alsa"}) {
        setenv("SDL_AUDIODRIVER", driver, 1);
        testing::internal::CaptureStderr();
        SoundPlayer player;
        player.Play(Sound::Step);
        std::this_thread::sleep_for(std::chrono::seconds(1));
        setenv("SDL_AUDIODRIVER", "disk", 1);
        player.Play(Sound::Step);
        std::this_thread::sleep_for(milliseconds(500));
        EXPECT_FALSE(std::filesystem::exists(file_)) << "tried more than once: " << driver;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << driver;
    }
    unsetenv("ALSA_CONFIG_PATH");
}

// The last test: its second player leaves a thread behind, which ends a little later.
TEST_F(Loudspeakers, ThatHangHoldNobodyUpAndDropWhatIsTooLate) {
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);  // opening it waits for a reader
    {
        SoundPlayer player;
        player.Play(Sound::Step);
        std::this_thread::sleep_for(milliseconds(400));
        const int reader = open(file_.c_str(), O_RDONLY);
        std::array<std::int16_t, 10000> heard{1};
        for (std::size_t i = 0; i < heard.size(); ++i) {
            ASSERT_EQ(read(reader, &heard[i], sizeof heard[i]), 2);
        }
        EXPECT_EQ(heard, decltype(heard){}) << "played a sound that nobody waits for any more";
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

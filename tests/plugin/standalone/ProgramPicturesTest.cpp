// What the stand-alone program shows, in the pictures that it takes of itself where there is no display.
#include "plugin/standalone/ProgramFixture.h"

#include "geometry/Geometry.h"
#include "presets/OwnPresetFile.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

namespace QVM_NAMESPACE {
namespace {

class StandalonePictures : public ProgramFixture {
protected:
    // The picture that the program takes of itself, or null.
    std::shared_ptr<const Image> screenshot(const std::string& arguments, const std::string& after = "0.3") {
        const std::string file = directory_.file("shot.png");
        const Outcome outcome = run(arguments + " --after " + after + " --screenshot " + file);
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        return picture(file);
    }
    std::string silence() const {
        return directory_.audio("silence.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, std::vector<float>(4800));
    }
    // Noise that gets louder by 15 dB a second, for four seconds.
    std::string crescendo() const {
        std::mt19937 random(3);
        std::uniform_real_distribution<float> noise(-1, 1);
        std::vector<float> samples;
        for (int i = 0; i < 4 * 48000; ++i)
            samples.push_back(noise(random) * std::pow(10.0f, (-60 + 15 * static_cast<float>(i) / 48000) / 20));
        return directory_.audio("crescendo.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1, 48000, samples);
    }
    static std::size_t colours(const Image& image) {
        return std::set<std::uint32_t>(image.pixels.begin(), image.pixels.end()).size();
    }
    static std::size_t differing(const Image& a, const Image& b) {
        std::size_t count = a.pixels.size() == b.pixels.size() ? 0 : a.pixels.size();
        for (std::size_t i = 0; count < a.pixels.size() && i < a.pixels.size(); ++i)
            count += a.pixels[i] != b.pixels[i];
        return count;
    }
};

TEST_F(StandalonePictures, HasTheThemeAndTheSizeThatAreRememberedUnlessItIsToldOthers) {
    const std::string folder = directory_.file("config"), file = folder + "/slantwise/preferences",
                      kept = "theme = 1\nscale = 1.5\n", shot = directory_.file("shot.png");
    std::filesystem::create_directories(folder + "/slantwise");
    std::ofstream(file) << kept;
    const auto shown = [&](const std::string& arguments) {
        EXPECT_EQ(runShell("XDG_CONFIG_HOME=" + folder + " $P --after 0.3 --screenshot " + shot + arguments).status, 0);
        return picture(shot);
    };
    const auto brightness = [](const Image& image) { return image.pixels[image.pixels.size() / 2] & 0xFF; };
    const auto remembered = shown("");
    ASSERT_TRUE(remembered);
    EXPECT_EQ(remembered->width, 720);
    EXPECT_EQ(remembered->height, 480);
    EXPECT_LT(brightness(*remembered), 64U);
    const auto told = shown(" --theme light --scale 1");
    ASSERT_TRUE(told);
    EXPECT_EQ(told->width, 480);
    EXPECT_GT(brightness(*told), 192U);
    std::ifstream in(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), kept) << "which is not remembered in turn";
}

// Its faces are its own.
TEST_F(StandalonePictures, NeedsNoFontsOfTheSystem) {
    const std::string file = directory_.file("shot.png");
    EXPECT_EQ(runShell("FONTCONFIG_FILE=/dev/null $P --after 0.1 --screenshot " + file).status, 0);
    const auto shown = picture(file);
    ASSERT_TRUE(shown);
    EXPECT_GT(colours(*shown), 50U);
}

TEST_F(StandalonePictures, TakesItsPictureOffScreenAtEitherScale) {
    const auto small = screenshot("--scale 1 " + tone()), large = screenshot("--scale 2 " + tone());
    ASSERT_TRUE(small && large);
    EXPECT_EQ(small->width, 480);
    EXPECT_EQ(small->height, 320);
    EXPECT_EQ(large->width, 960);
    EXPECT_EQ(large->height, 640);
    EXPECT_GT(colours(*small), 50U);
    EXPECT_GT(colours(*large), 50U);
}

TEST_F(StandalonePictures, ThemesAndPresetsShow) {
    const std::string still = "--play " + silence() + " --theme ";
    const auto light = screenshot(still + "light --preset Default", "2"),
               dark = screenshot(still + "dark --preset Default", "2"),
               air = screenshot(still + "light --preset Air", "2"),
               again = screenshot(still + "light --preset Default", "2");
    ASSERT_TRUE(light && dark && air && again);
    EXPECT_GT(differing(*light, *dark), light->pixels.size() / 2);
    EXPECT_GT(differing(*light, *air), 500U);
    EXPECT_EQ(differing(*light, *again), 0U);
}

TEST_F(StandalonePictures, AUsersPresetShows) {
    writeOwnPreset("Warm voice", "tg:9/trl:200");
    const std::string still = "--play " + silence() + " --preset ";
    const auto plain = screenshot(still + "Default", "2"), own = screenshot(still + "'Warm voice'", "2");
    ASSERT_TRUE(plain && own);
    EXPECT_GT(differing(*plain, *own), 500U);
}

// The preset that it starts with anyway, named: the border that a control with the keyboard wears would be the
// difference.
TEST_F(StandalonePictures, NoControlHasTheKeyboardAtTheStart) {
    const std::string still = "--play " + silence();
    const auto plain = screenshot(still, "2"), named = screenshot(still + " --preset Default", "2");
    ASSERT_TRUE(plain && named);
    EXPECT_EQ(differing(*plain, *named), 0U);
}

TEST_F(StandalonePictures, TheCurveIsInThePicture) {
    const auto flat = screenshot("--preset Default", "2"), air = screenshot("--preset Air", "2"),
               none = screenshot("--preset Air", "0.1");
    ASSERT_TRUE(flat && air && none);
    const auto differs = [](const Image& a, const Image& b) {
        std::size_t count = 0;
        for (int y = 196; y < 258; ++y) {
            for (int x = 422; x < 476; ++x) {
                const auto i = static_cast<std::size_t>(y * a.width + x);
                count += a.pixels[i] != b.pixels[i];
            }
        }
        return count;
    };
    EXPECT_GT(differs(*flat, *none), 100U);
    EXPECT_GT(differs(*flat, *air), 100U);
}

TEST_F(StandalonePictures, WithAudioTheMeterMovesAndNothingElse) {
    const std::string play = "--play " + crescendo();
    const Rect track{350, 60, 15, 157};
    std::size_t inMeter = 0;
    // On a busy machine two runs may by chance be caught at the same moment of the music.
    for (int attempt = 0; attempt < 3 && inMeter == 0; ++attempt) {
        const auto one = screenshot(play, "2"), other = screenshot(play, "2.1");
        ASSERT_TRUE(one && other);
        for (std::size_t i = 0; i < one->pixels.size(); ++i) {
            if (one->pixels[i] == other->pixels[i]) continue;
            const auto width = static_cast<std::size_t>(one->width);
            const Point at{static_cast<double>(i % width) + 0.5, static_cast<double>(i / width) + 0.5};
            ASSERT_TRUE(track.contains(at)) << at.x << ", " << at.y;
            ++inMeter;
        }
    }
    EXPECT_GT(inMeter, 0U);
}

TEST_F(StandalonePictures, SettingsShow) {
    const std::string address = "--play " + silence() + " --settings 'https://ferrowind.example/slantwise/2.0.1/?";
    const auto plain = screenshot("--play " + silence(), "2"), moved = screenshot(address + "tg:9/trl:200'", "2"),
               again = screenshot(address + "trl:200/TiltGain:9'", "2");
    ASSERT_TRUE(plain && moved && again);
    EXPECT_GT(differing(*plain, *moved), 500U);
    EXPECT_EQ(differing(*moved, *again), 0U);
}

TEST_F(StandalonePictures, BlanksAndLineEndsRoundAnAddressAreNoPartOfIt) {
    const std::string address = "https://ferrowind.example/slantwise/2.0.1/?tg:9";
    const std::string still = "--play " + silence() + " --settings ";
    const auto bare = screenshot(still + "'" + address + "'", "2"),
               blank = screenshot(still + "' \t" + address + " \n'", "2");
    ASSERT_TRUE(bare && blank);
    EXPECT_EQ(differing(*bare, *blank), 0U);
}

} // namespace
} // namespace QVM_NAMESPACE

// SOUND - the game's beeps: only a running game with the sound on plays, and
// a file that is missing or is a directory gives silence.
#include "tests/game/game_scene.h"

namespace nautrix {
namespace {

class Sound : public GameScene {};

TEST_F(Sound, OnlyARunningGameWithTheSoundOnPlays) {
  Play(1);
  form.PlaySoundFile("Beep2.wav");
  EXPECT_EQ(Sounds(), Beeps{"Beep2.wav"});
  form.mSound.Checked = false;
  Tick(5);
  form.PlaySoundFile("Beep2.wav");
  EXPECT_TRUE(Sounds().empty());
}

TEST_F(Sound, AMissingFileOrADirectoryOfThatNameIsSilence) {
  Play(1);
  fake.files.erase("/opt/nautrix/Beep0.wav");
  fake.files.erase("/opt/nautrix/Beep1.wav");
  fake.directories.insert("/opt/nautrix/Beep1.wav");
  Tick(5);
  form.PlaySoundFile("Beep1.wav");
  EXPECT_TRUE(Sounds().empty());
  EXPECT_FALSE(form.FileExists("/opt/nautrix/Beep1.wav"));
  EXPECT_TRUE(form.FileExists("/opt/nautrix/Beep2.wav"));
  // A file put back counts at the next call.
  fake.files.insert("/opt/nautrix/Beep0.wav");
  Tick();
  EXPECT_EQ(Sounds(), Beeps{"Beep0.wav"});
}

TEST_F(Sound, AProgramAtTheRootGetsNoSecondSeparator) {
  Play(1);
  fake.program_folder = "/";
  fake.files = {"/Beep3.wav"};
  form.PlaySoundFile("Beep3.wav");
  EXPECT_EQ(Sounds(), Beeps{"Beep3.wav"});
}

// The demo walks, works at the chest, counts on the boat and loses divers in
// silence, with the sound on.
TEST_F(Sound, TheDemoIsSilent) {
  Load();
  ASSERT_TRUE(form.mSound.Checked);
  fake.rnd_default = 0.1f;  // every tentacle leaves the body
  for (int s = 0; s < 120; ++s) NextSecond();
  EXPECT_GT(form.TentacleLength[2] + form.TentacleLength[3] + form.TentacleLength[4], 0);
  EXPECT_TRUE(fake.sounds.empty());
}

}  // namespace
}  // namespace nautrix

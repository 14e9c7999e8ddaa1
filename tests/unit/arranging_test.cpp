// Notes are arranged within the room of their own monitor, and each can be taken hold of.
#include "note/arranging.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace jotlets {
namespace {

constexpr Rect kLeft{0, 0, 1000, 700};
constexpr Rect kRight{1000, 100, 2280, 900};
constexpr Colour kRed{255, 0, 0};
constexpr Colour kBlue{0, 0, 255};
constexpr ArrangeSteps kSteps;

std::vector<Rect> Arranged(Arrangement how, const std::vector<ArrangedNote>& notes) {
  const std::vector<Point> places = ArrangedPlaces(how, notes, kSteps);
  std::vector<Rect> made;
  for (std::size_t at = 0; at < notes.size(); ++at)
    made.push_back(RectAt(places[at], {notes[at].bounds.Width(), notes[at].bounds.Height()}));
  return made;
}

std::vector<ArrangedNote> Many(std::size_t count) {
  std::vector<ArrangedNote> notes;
  for (std::size_t at = 0; at < count; ++at) {
    const auto varied = static_cast<std::int32_t>(at * 37 % 160);
    notes.push_back(
        {{0, 0, 160 + varied, 120 + varied / 2}, at % 3 == 0 ? kRed : kBlue, at % 4 == 0 ? kRight : kLeft});
  }
  return notes;
}

TEST(Arranging, KeepsEveryNoteInTheRoomOfItsMonitor) {
  for (const Arrangement how : {Arrangement::kTile, Arrangement::kCascade, Arrangement::kColours}) {
    const std::vector<ArrangedNote> notes = Many(120);
    const std::vector<Rect> made = Arranged(how, notes);
    for (std::size_t at = 0; at < made.size(); ++at) {
      const Rect& area = notes[at].area;
      EXPECT_TRUE(made[at].left >= area.left && made[at].top >= area.top && made[at].right <= area.right &&
                  made[at].bottom <= area.bottom)
          << static_cast<int>(how) << ": " << at;
    }
  }
  // One that is too large shows its title.
  EXPECT_EQ(Arranged(Arrangement::kTile, {{{0, 0, 3000, 2000}, kRed, kRight}})[0].TopLeft(),
            kRight.TopLeft());
}

TEST(Arranging, TilesWithoutOverlapWhileThereIsRoom) {
  std::vector<ArrangedNote> notes(9, {{0, 0, 300, 200}, kRed, kLeft});
  const std::vector<Rect> made = Arranged(Arrangement::kTile, notes);
  for (std::size_t a = 0; a < made.size(); ++a)
    for (std::size_t b = a + 1; b < made.size(); ++b)
      EXPECT_FALSE(Overlap(made[a], made[b])) << a << " " << b;
  EXPECT_EQ(made[3].TopLeft(), (Point{8, 216}));
}

TEST(Arranging, ShowsTheTitleOfEachNoteOfACascade) {
  std::vector<ArrangedNote> notes(40, {{0, 0, 280, 280}, kRed, kLeft});
  std::vector<Rect> made = Arranged(Arrangement::kCascade, notes);
  for (std::size_t at = 0; at < made.size(); ++at)
    EXPECT_EQ(std::ranges::count(made, made[at].TopLeft(), &Rect::TopLeft), 1) << at;
}

TEST(Arranging, PilesTheNotesOfAColour) {
  const std::vector<ArrangedNote> notes{{{0, 0, 200, 200}, kRed, kLeft},
                                        {{0, 0, 240, 200}, kBlue, kLeft},
                                        {{0, 0, 260, 200}, kRed, kLeft},
                                        {{0, 0, 200, 200}, kBlue, kLeft}};
  const std::vector<Rect> made = Arranged(Arrangement::kColours, notes);
  EXPECT_EQ(made[0].TopLeft(), (Point{8, 8}));
  EXPECT_EQ(made[2].TopLeft(), (Point{8, 8 + kSteps.step}));
  EXPECT_EQ(made[1].TopLeft(), (Point{8 + 260 + kSteps.gap, 8})) << "beside the widest of the first pile";
  EXPECT_EQ(made[3].TopLeft(), (Point{made[1].left, 8 + kSteps.step}));
}

}  // namespace
}  // namespace jotlets

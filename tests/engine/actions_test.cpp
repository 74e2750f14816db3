// What buttons do to the piece: shifts that repeat, holding, the places that a turn tries.
#include <gtest/gtest.h>

#include "engine/played_game.h"

namespace {

using enum TetrominoType;

TEST(Actions, AHeldShiftRepeatsAfter250ThenEvery100Milliseconds)
{
    PlayedGame game;
    game.put(O, 8, 0, 0);
    std::vector<int> moves;
    for (int time = 0; time <= 600; time += 25) {
        const int before = game.piece().x;
        game.tick({Action::Left});
        if (game.piece().x != before) {
            moves.push_back(time);
            EXPECT_EQ(game.session.soundEvent, SoundEvent::Shift);
            EXPECT_TRUE(game.session.dirty & dirty::movedPiece);
        }
    }
    EXPECT_EQ(moves, (std::vector<int>{0, 250, 350, 450, 550}));
}

TEST(Actions, HoldShowsAtOnceAndCanBeDisabled)
{
    PlayedGame game;
    const TetrominoType first = game.piece().type;
    game.session.holdEnabled = 0;
    game.tick({Action::Hold});
    EXPECT_EQ(game.session.holdType, -1);
    game.tick();
    game.session.holdEnabled = 1;
    game.tick({Action::Hold});
    EXPECT_EQ(game.session.holdType, static_cast<int>(first));
    EXPECT_EQ(game.session.dirty, dirty::everything);
}

/// The well is full except for the piece and one of the places of its turn.
TEST(Actions, TurnsTryFivePlaces)
{
    struct Turn
    {
        TetrominoType type;
        int rotation;
        CellOffset places[kickCount]; // turned to the right from (4, 10)
    };
    const Turn turns[] = {
        {J, 0, {{4, 10}, {3, 10}, {3, 9}, {4, 12}, {3, 12}}},
        {J, 1, {{4, 10}, {5, 10}, {5, 11}, {4, 8}, {5, 8}}},
        {J, 2, {{4, 10}, {5, 10}, {5, 9}, {4, 12}, {5, 12}}},
        {J, 3, {{4, 10}, {3, 10}, {3, 11}, {4, 8}, {3, 8}}},
        {I,
         0,
         {{5, 10}, {3, 10}, {6, 10}, {3, 11}, {6, 8}}}, // its box moves even with free space around
        {I, 1, {{4, 11}, {3, 11}, {6, 11}, {3, 9}, {6, 12}}},
        {I, 2, {{3, 10}, {5, 10}, {2, 10}, {5, 9}, {2, 12}}},
        {I, 3, {{4, 9}, {5, 9}, {2, 9}, {5, 11}, {2, 8}}},
    };
    for (const Turn &turn : turns) {
        const int turned = (turn.rotation + 1) % rotationCount;
        for (const CellOffset &place : turn.places) {
            PlayedGame game;
            for (int row = 0; row < wellRows; ++row) {
                game.fillRow(row);
            }
            game.empty(rotationState(turn.type, turn.rotation), 4, 10);
            game.put(turn.type, 4, 10, turn.rotation);
            game.tick({Action::RotateRight});
            EXPECT_TRUE(game.isAt(4, 10, turn.rotation)); // there is no place yet
            EXPECT_EQ(game.session.soundEvent, SoundEvent::None);
            game.tick();
            game.empty(rotationState(turn.type, turned), place.x, place.y);
            game.tick({Action::RotateRight});
            EXPECT_TRUE(game.isAt(place.x, place.y, turned)) << turn.rotation;
            EXPECT_EQ(game.session.soundEvent, SoundEvent::Rotate);
            game.tick({Action::RotateLeft});
            EXPECT_TRUE(game.isAt(4, 10, turn.rotation)) << place.x << ' ' << place.y;
        }
    }
}

} // namespace

#include "interferogram/ToolBox.h"

#include <gtest/gtest.h>

namespace morvane {
namespace {

TEST(ToolBox, OrdersAreSelectedOrTypedAsTheyStand)
{
    ToolBox box;
    int changes = 0;
    box.Changed = [&changes] { ++changes; };
    box.SetOrder(7);
    EXPECT_EQ(box.OrderText(), "7");
    for (const auto& [text, order] : {std::pair{"500", 500}, {"12x", 12}, {"2.5", 2}, {"", 0}}) {
        box.TypeOrder(text);
        EXPECT_EQ(box.CurrentOrder(), order);
        EXPECT_EQ(box.OrderText(), text) << "as the user typed it";
    }
    EXPECT_EQ(box.PreviousOrder(), 2);
    EXPECT_EQ(changes, 5);
}

} // namespace
} // namespace morvane

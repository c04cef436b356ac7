#include <gtest/gtest.h>

#include "embed.h"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    embed::start();
    const int status = RUN_ALL_TESTS();
    embed::stop();
    return status;
}

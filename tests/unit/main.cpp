#include <gtest/gtest.h>

#include "engine.h"

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    engine::start();
    const int status = RUN_ALL_TESTS();
    engine::stop();
    return status;
}

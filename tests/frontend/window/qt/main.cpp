#include "frontend/window/qt/Programa.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Whatever screen there is: the tests type and click by themselves. Only the option -platform asks for another.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const quilatador::Programa programa(argc, argv);
    return RUN_ALL_TESTS();
}

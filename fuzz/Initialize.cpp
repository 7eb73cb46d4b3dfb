// What all fuzz targets begin with, called by the fuzzer and by the replay.

#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv); // texts are measured; Qt knows it as the application, until the end
    return 0;
}

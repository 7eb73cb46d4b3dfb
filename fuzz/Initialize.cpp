// The beginning of all fuzz targets, called by the fuzzer and by the replay.

#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv); // texts are measured; Qt keeps it as the application until the end
    return 0;
}

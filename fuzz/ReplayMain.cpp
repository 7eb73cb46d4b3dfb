// Runs a fuzz target over the files of folders, without a fuzzer, so that mended faults stay mended.

#include <QByteArray>
#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int main(int argc, char *argv[])
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator files(QString::fromLocal8Bit(argv[i]), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            const QByteArray bytes = file.readAll();
            std::fprintf(stderr, "%s\n", qPrintable(file.fileName())); // the last file is the one that fails
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size()));
            ++count;
        }
    }
    delete QCoreApplication::instance(); // the target's own
    return count > 0 ? 0 : 1;            // an empty corpus would prove nothing
}

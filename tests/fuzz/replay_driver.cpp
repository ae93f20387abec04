// Replays a corpus folder through a fuzz target, each file as it is and then a fixed number of mutations with
// a fixed seed, so that every run does the same.

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <cstdint>
#include <cstdio>
#include <random>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int kMutationsPerFile = 200;

void Run(const QByteArray& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                           static_cast<std::size_t>(input.size()));
}

QByteArray Mutated(QByteArray bytes, std::mt19937& random) {
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<std::uint32_t>(std::max<qsizetype>(limit, 1)));
    };
    for (qsizetype change = below(8); change >= 0; --change) {
        const qsizetype at = below(bytes.size());
        switch (below(5)) {
            case 0:
                if (!bytes.isEmpty()) bytes[at] = static_cast<char>(random());
                break;
            case 1:
                bytes.insert(at, static_cast<char>(random()));
                break;
            case 2:
                bytes.remove(at, 1 + below(16));
                break;
            case 3:
                bytes.insert(at, bytes.mid(below(bytes.size()), below(64)));
                break;
            default:
                bytes.truncate(at);
        }
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    std::mt19937 random(20240229);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same inputs on every run
    long long count = 0;
    for (int index = 1; index < argc; ++index) {
        const QDir corpus(QString::fromLocal8Bit(argv[index]));
        for (const QString& name : corpus.entryList(QDir::Files, QDir::Name)) {
            QFile file(corpus.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) return 1;
            const QByteArray seed = file.readAll();
            Run(seed);
            for (int round = 0; round < kMutationsPerFile; ++round, ++count)
                Run(Mutated(seed, random));
        }
    }
    std::printf("%lld inputs\n", count);
    return count > 0 ? 0 : 1;
}

#include <cstdio>

#include "QtPlatform.h"
#include "VornaApp.h"
#include "VornaApplication.h"

int main(int argc, char** argv)
{
    VornaApplication app(argc, argv);
    StartOptions options;
    if (const QString error = ParseStartOptions(QCoreApplication::arguments(), options); !error.isEmpty()) {
        std::fprintf(stderr, "VORNA: %s\nusage: VORNA [--port-map COMn=PATH]...\n", qUtf8Printable(error));
        return 2;
    }
    QtPlatform platform;
    app.setPlatform(&platform);
    return RunVORNA(app, platform, options);
}

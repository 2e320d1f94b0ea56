#include "QtPlatform.h"
#include "VornaApp.h"
#include "VornaApplication.h"

int main(int argc, char** argv)
{
    VornaApplication app(argc, argv);
    QtPlatform platform;
    app.setPlatform(&platform);
    return RunVORNA(app, platform, StartOptions {});
}

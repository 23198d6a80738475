#include "bench/BenchApplication.h"

#include <QApplication>

// Outside of all namespaces, as the macro asks for.
static void InitResources()
{
    Q_INIT_RESOURCE(morvane);
}

namespace morvane {

void HaveApplication()
{
    static int count = 1;
    static char name[] = "morvane_bench";
    static char* values[] = {name, nullptr};
    if (QApplication::instance())
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    InitResources();
    new QApplication(count, values);
}

} // namespace morvane

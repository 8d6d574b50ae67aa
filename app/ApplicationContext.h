#pragma once

class QApplication;

namespace KOLT {

class DialogMain;

/// The application object and the main window. main() sets both; they outlive the event loop.
struct ApplicationContext
{
    static ApplicationContext& instance()
    {
        static ApplicationContext context;
        return context;
    }

    QApplication* application = nullptr;
    DialogMain* mainWindow = nullptr;
};

} // namespace KOLT

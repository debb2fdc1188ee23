// SPDX-License-Identifier: Apache-2.0
#include <QGuiApplication>
#include <QQuickWindow>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

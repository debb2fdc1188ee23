list(APPEND UI_SOURCES
    stats/MomentWording.cpp
    stats/StatisticsCardModel.cpp
    stats/StatisticsFigures.cpp
    stats/StatisticsPicture.cpp
    stats/StatisticsRows.cpp)
list(APPEND UI_QML
    stats/MomentLine.qml
    stats/ShareCard.qml
    stats/StatisticsCard.qml
    stats/StatisticsFigure.qml
    stats/StatisticsScreen.qml
    stats/WeekChart.qml)

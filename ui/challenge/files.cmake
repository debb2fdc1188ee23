list(APPEND UI_SOURCES
    challenge/ChallengeRows.cpp
    challenge/ChallengeScreenModel.cpp
    challenge/Countries.cpp
    challenge/CountryChoices.cpp
    challenge/Flags.cpp)
list(APPEND UI_QML
    challenge/ChallengeBoardFace.qml
    challenge/ChallengeBoardRow.qml
    challenge/ChallengeForm.qml
    challenge/ChallengeLeaveFace.qml
    challenge/ChallengeScreen.qml
    challenge/CountryField.qml
    challenge/FlagMark.qml)

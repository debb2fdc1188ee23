set(CLI_TRACE_SOURCES
    TracePlayer.cpp
    TraceReader.cpp
    TraceShapes.cpp
    TraceStage.cpp
    TraceWriter.cpp
)

"""The keywords of MorvaneDoc as numbers, and the numbers of its errors."""
from enum import IntEnum


class MorvaneDocShape(IntEnum):
    ShapeCircle = 1
    ShapeEllipse = 2
    ShapePolygon = 3


class MorvaneDocTraceDirection(IntEnum):
    TraceHorizontal = 0
    TraceVertical = 1


class MorvaneDocAberrationType(IntEnum):
    AberrationTilt = 0
    AberrationTiltAngle = 1
    AberrationDefocus = 2
    AberrationAstigmatism = 3
    AberrationAstigmatismAngle = 4
    AberrationComa = 5
    AberrationComaAngle = 6
    AberrationSA = 7
    AberrationRMS = 8
    AberrationPV = 9
    AberrationStrehl = 10


class MorvaneDocFringeDensity(IntEnum):
    SuperFine = 1
    Fine = 2
    Normal = 3
    Coarse = 4


class MorvaneDocErrors(IntEnum):
    ErrorNoDocument = 0x80040201
    ErrorInvalidAberration = 0x80040202
    ErrorInvalidTraceDirection = 0x80040203
    ErrorInvalidFringeOrder = 0x80040204
    ErrorInvalidFringeIndex = 0x80040205
    ErrorInvalidFringeDensity = 0x80040206
    ErrorInvalidBounds = 0x80040207
    ErrorInvalidIndex = 0x80040208
    ErrorInvalidShape = 0x80040209
    ErrorInvalidNumber = 0x8004020A
    ErrorInvalidBoolean = 0x8004020B
    ErrorInvalidPath = 0x8004020C
    ErrorInvalidType = 0x8004020D
    ErrorInvalidPoints = 0x8004020E
    ErrorInvalidParameter = 0x8004020F
    ErrorNoAperture = 0x80040210
    ErrorNoFringeCenters = 0x80040211
    ErrorNoGridAnalysisResults = 0x80040212
    ErrorNoGrabber = 0x80040213

// The lines of a call journal as short texts, to be compared with QCOMPARE.

#pragma once

#include <QByteArrayList>
#include <QStringList>

/// The calls of a journal, in order, or those of `methods` alone: method and arguments as in
/// "InsertLine 0,0,0,10,5,0", after the object where the journal names one ("kvSpline_c#1
/// SetControlPointCoordinate 1,5,-5,0"), before the result of a refused call ("InsertCircle 0,0,0,0 -> 1"). A
/// negative zero is a zero.
QStringList callsOf(const QByteArrayList &journal, const QStringList &methods = {});

#pragma once

class QTableView;

/// Makes a table one to read and to choose a row of by touch: whole rows one at a time, no editing,
/// no grid, no row numbers, rows of `rowHeight` pixels, scrolled by drawing a finger over it.
void setUpTouchTable(QTableView *table, int rowHeight);

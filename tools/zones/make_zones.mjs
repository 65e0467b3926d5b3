#!/usr/bin/env node
// Writes resources/zones.bin, the map of the time zones (docs/zones-format.md).
//
//   npm install --prefix FOLDER geo-tz@8.1.9 && tools/zones/make_zones.mjs FOLDER [COLUMNS]
//
// COLUMNS is the number of cells around the world.  The borders are OpenStreetMap's (ODbL), as timezone-boundary-builder puts them
// together and the package geo-tz carries them: a tree of quarters of the world,
// whose leaves are either lists of zones or polygons cut to the leaf.  We take the
// zones at the centre of each cell of a grid, and then see to it that each zone
// which touches a cell can be read from that cell or one of its eight neighbours.

import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

const [folder, columnsText] = process.argv.slice(2);
const modules = path.join(path.resolve(folder), 'node_modules');
const require = createRequire(path.join(modules, 'geo-tz', 'package.json'));
const geobuf = require('geobuf');
const Pbf = require('pbf');
const data = path.join(modules, 'geo-tz', 'data', 'timezones.geojson');
const index = JSON.parse(fs.readFileSync(data + '.index.json'));
const shapes = fs.readFileSync(data + '.geo.dat');

const COLUMNS = Number(columnsText ?? 36000);
const ROWS = COLUMNS / 2;
const CELL = 360 / COLUMNS;
const EDGE = 0.0001; // the tree ends so far from the poles and the date line

/// First column (or row) whose centre is not before `degrees` east of -180 (north of -90).
const firstCell = (degrees, count) =>
  Math.min(Math.max(Math.ceil(degrees / CELL - 0.5), 0), count);
const cellOf = (degrees, count) =>
  Math.min(Math.max(Math.floor(degrees / CELL), 0), count - 1);

const spans = Array.from({ length: ROWS }, () => []); // of a row: first, end, zone, …
const touched = Array.from({ length: ROWS }, () => []); // of a row: column * 1024 + zone

function addLeaf(box, zones) {
  const first = firstCell(box.left + 180, COLUMNS);
  const end = firstCell(box.right + 180, COLUMNS);
  const top = firstCell(box.top + 90, ROWS);
  for (let row = firstCell(box.bottom + 90, ROWS); row < top; ++row) {
    for (const zone of zones) spans[row].push(first, end, zone);
  }
}

/// Marks each cell that the edge passes through: column by column of its extent in x,
/// those rows that it covers there.
function touchAlong(x1, y1, x2, y2, zone) {
  if (x2 < x1) [x1, y1, x2, y2] = [x2, y2, x1, y1];
  const slope = x2 > x1 ? (y2 - y1) / (x2 - x1) : 0;
  const last = cellOf(x2 + 180, COLUMNS);
  for (let column = cellOf(x1 + 180, COLUMNS); column <= last; ++column) {
    const from = Math.max(x1, column * CELL - 180);
    const to = Math.min(x2, (column + 1) * CELL - 180);
    let low = x2 > x1 ? y1 + (from - x1) * slope : y1;
    let high = x2 > x1 ? y1 + (to - x1) * slope : y2;
    if (high < low) [low, high] = [high, low];
    const top = cellOf(high + 90, ROWS);
    for (let row = cellOf(low + 90, ROWS); row <= top; ++row) {
      const key = column * 1024 + zone;
      if (touched[row].at(-1) !== key) touched[row].push(key);
    }
  }
}

/// Even-odd along the centre line of each row.
function addPolygons(polygons, zone) {
  const crossings = new Map();
  for (const rings of polygons) {
    for (const ring of rings) {
      for (let i = 1; i < ring.length; ++i) {
        const [x1, y1] = ring[i - 1];
        const [x2, y2] = ring[i];
        touchAlong(x1, y1, x2, y2, zone);
        const end = firstCell(Math.max(y1, y2) + 90, ROWS);
        for (let row = firstCell(Math.min(y1, y2) + 90, ROWS); row < end; ++row) {
          const y = (row + 0.5) * CELL - 90;
          if (!crossings.has(row)) crossings.set(row, []);
          crossings.get(row).push(x1 + ((y - y1) / (y2 - y1)) * (x2 - x1));
        }
      }
    }
  }
  for (const [row, xs] of crossings) {
    if (xs.length % 2 !== 0) throw new Error(`an open ring in row ${row}`);
    xs.sort((a, b) => a - b);
    for (let i = 0; i < xs.length; i += 2) {
      const first = firstCell(xs[i] + 180, COLUMNS);
      const end = firstCell(xs[i + 1] + 180, COLUMNS);
      if (first < end) spans[row].push(first, end, zone);
    }
  }
}

function walk(node, box) {
  if (!node) return; // sea
  if (Array.isArray(node)) return addLeaf(box, node);
  if (node.pos >= 0 && node.len) {
    const leaf = geobuf.decode(new Pbf(shapes.subarray(node.pos, node.pos + node.len)));
    for (const { geometry, properties } of leaf.features) {
      const polygons = geometry.type === 'Polygon' ? [geometry.coordinates] : geometry.coordinates;
      addPolygons(polygons, index.timezones.indexOf(properties.tzid));
    }
    return;
  }
  const x = (box.left + box.right) / 2;
  const y = (box.bottom + box.top) / 2;
  walk(node.a, { ...box, left: x, bottom: y });
  walk(node.b, { ...box, right: x, bottom: y });
  walk(node.c, { ...box, right: x, top: y });
  walk(node.d, { ...box, left: x, top: y });
}

/// The lists of zones that cells have, numbered as they come; 0 is the sea.  The first
/// `kept` hold at the centre of the cell, more than one where clocks are disputed.
const lists = [[]];
const kept = [0];
const numbers = new Map([['0', 0]]);
function numberOf(zones, keptHere = zones.length) {
  const key = [keptHere, ...zones].join(',');
  if (!numbers.has(key)) {
    numbers.set(key, lists.length);
    lists.push(zones);
    kept.push(keptHere);
  }
  return numbers.get(key);
}

/// The row as the number of a list for each column.
function fillRow(row) {
  const cells = new Uint16Array(COLUMNS);
  const s = spans[row];
  for (let i = 0; i < s.length; i += 3) {
    for (let column = s[i]; column < s[i + 1]; ++column) {
      const list = lists[cells[column]];
      if (list.length === 0) {
        cells[column] = numberOf([s[i + 2]]);
      } else if (!list.includes(s[i + 2])) {
        cells[column] = numberOf([...list, s[i + 2]].sort((a, b) => a - b));
      }
    }
  }
  return cells;
}

/// Adds to the cells of the middle row the zones that touch them unseen.
function addUnseen(row, below, middle, above, into) {
  let added = 0;
  for (const key of touched[row]) {
    const column = Math.floor(key / 1024);
    const zone = key % 1024;
    const isSeen = [-1, 0, 1].some((step) => {
      const at = (column + step + COLUMNS) % COLUMNS;
      return [below, middle, above].some((cells) => lists[cells[at]].includes(zone));
    });
    if (isSeen || lists[into[column]].includes(zone)) continue;
    into[column] = numberOf([...lists[into[column]], zone], kept[into[column]]);
    ++added;
  }
  return added;
}

for (let zone = 0; zone < index.timezones.length; ++zone) numberOf([zone]);
walk(index.lookup, { left: -180 + EDGE, right: 180 - EDGE, bottom: -90 + EDGE, top: 90 - EDGE });

const runs = [];
const starts = new Uint32Array(ROWS + 1);
let unseen = 0;
let [below, middle, above] = [null, fillRow(0), fillRow(1)];
for (let row = 0; row < ROWS; ++row) {
  const cells = middle.slice();
  unseen += addUnseen(row, below ?? middle, middle, above, cells);
  starts[row] = runs.length / 2;
  for (let column = 0; column < COLUMNS; ++column) {
    if (column === 0 || cells[column] !== cells[column - 1]) runs.push(column, cells[column]);
  }
  [below, middle, above] = [middle, above, row + 2 < ROWS ? fillRow(row + 2) : above];
}
starts[ROWS] = runs.length / 2;

// The time zone database says of which country each zone is.
const countries = new Map(fs.readFileSync('/usr/share/zoneinfo/zone.tab', 'utf8').split('\n')
  .filter((line) => line && !line.startsWith('#'))
  .map((line) => line.split('\t')).map(([country, , zone]) => [zone, country]));
const text = index.timezones.map((name) => `${name}\t${countries.get(name) ?? ''}\n`).join('');
const listBytes = lists.flatMap((list, i) => [list.length, kept[i], ...list]);
const header = new Uint32Array([COLUMNS, ROWS, text.length, lists.length, listBytes.length]);
const pad = (n) => Buffer.alloc((4 - (n % 4)) % 4);
const bytes = Buffer.concat([
  Buffer.from('ZVZONES1'),
  Buffer.from(header.buffer),
  Buffer.from(text), pad(text.length),
  Buffer.from(new Uint16Array(listBytes).buffer), pad(2 * listBytes.length),
  Buffer.from(starts.buffer),
  Buffer.from(new Uint16Array(runs).buffer),
]);
const target = path.join(path.dirname(fileURLToPath(import.meta.url)), '../../resources/zones.bin');
fs.writeFileSync(process.env.ZONES_OUT ?? target, bytes);
console.log(`${index.timezones.length} zones, ${lists.length} lists, ${runs.length / 2} runs, ` +
  `${unseen} cells with a zone of their own, ${bytes.length} bytes`);

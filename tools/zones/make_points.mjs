#!/usr/bin/env node
// Writes data/zones/points.tsv: 2,000 places on land with the zones that geo-tz gives
// them, to hold the map of the zones against.  Called as make_zones.mjs.
//
// The catalogue's points of interest come first, then points at random, evenly over the
// land, of which every second stands where another zone lies within 0.02 degree.

import fs from 'node:fs';
import path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

const modules = path.join(path.resolve(process.argv[2]), 'node_modules');
const { find } = createRequire(path.join(modules, 'x'))('geo-tz/all');
const root = path.join(path.dirname(fileURLToPath(import.meta.url)), '../..');

let seed = 20260621;
function random() { // xorshift
  seed ^= seed << 13;
  seed ^= seed >>> 17;
  seed ^= seed << 5;
  return (seed >>> 0) / 2 ** 32;
}

const isAtSea = (zones) => zones[0].startsWith('Etc/');
const rows = [];
const add = (latitude, longitude) => {
  const zones = find(latitude, longitude).sort();
  rows.push([latitude.toFixed(4), longitude.toFixed(4), ...zones].join('\t'));
};

const pois = fs.readFileSync(path.join(root, 'resources/catalogue/Poi.csv'), 'utf8').trim()
  .split('\n').slice(1).map((line) => line.split(','));
for (const [, , , , latitude, longitude] of pois) add(Number(latitude), Number(longitude));
while (rows.length < 2000) {
  const latitude = Number((Math.asin(random() * 2 - 1) * 180 / Math.PI).toFixed(4));
  const longitude = Number((random() * 359.9 - 179.95).toFixed(4));
  const zones = find(latitude, longitude);
  if (isAtSea(zones)) continue;
  const isNearBorder = [[0.02, 0], [-0.02, 0], [0, 0.02], [0, -0.02]].some(([north, east]) =>
    find(latitude + north, longitude + east).join() !== zones.join());
  if (isNearBorder || rows.length % 2 === 0) add(latitude, longitude);
}
fs.writeFileSync(path.join(root, 'data/zones/points.tsv'), rows.join('\n') + '\n');

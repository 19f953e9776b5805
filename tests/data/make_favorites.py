#!/usr/bin/env python3
"""How favorite_v2.pfk and favorite_old.pfk were made. They are frozen: every later version reads them as they are, so
this is not run again; it states the rule by which favorite_frozen_test.cpp knows their values.

Row r of tagtable.tsv, counted from 1, whose field in record.tsv or record_extra.tsv is
  an integer              holds 1000 + r, of 64 bits 1700000000000 + r
  a fixed-point number    holds r.25, or r.5 for the four ...Mag fields
  a text                  holds 表 and the row's key, the key cut to the field
  no field                is empty
The four rows of authentication have no element.
"""
import re
from pathlib import Path
from xml.sax.saxutils import escape

DATA = Path(__file__).parent
AUTHENTICATION = {'OAJ', 'OAJUI', 'OAJP', 'OAJA'}
ROWS_OF_OLD_FILE = 200


def rows(name):
    return [line.split('\t') for line in (DATA / name).read_text(encoding='utf-8').splitlines()[1:]]


def fields_by_tag():
    fields = {}
    for row in rows('record.tsv'):
        field = {'name': row[1], 'type': row[4], 'width': int(row[5])}
        for tag in filter(None, [row[2], {'0': 'EXT_PGSIZE', '305': 'Depth'}.get(row[3])]):
            fields[tag] = field
    for row in rows('record_extra.tsv'):
        if row[3]:
            fields[row[3]] = {'name': row[2], 'type': row[5], 'width': int(row[6])}
    return fields


def value(row, key, field):
    if not field:
        return ''
    if field['type'] == 'text':
        return '表' + key[:field['width'] - 3]
    if field['type'] == 'i32 fixed':
        return f'{row}.5' if field['name'].endswith('Mag') else f'{row}.25'
    return str((1700000000000 if field['type'] == 'i64' else 1000) + row)


def descriptions():
    table = (DATA / '../../settings/tag_table.def').read_text(encoding='utf-8')
    return dict(re.findall(r'^ZR_TAG\((\w+), \w+, "(.*)"\)$', table, re.M))


def options(count):
    fields = fields_by_tag()
    comments = descriptions()
    text = ''
    for row, (_, key, long_name) in enumerate(rows('tagtable.tsv')[:count], 1):
        if key in AUTHENTICATION:
            continue
        text += f'<!--{comments[key]}--><{long_name}>{escape(value(row, key, fields.get(key)))}</{long_name}>'
    return text


def header(elements):
    return ''.join(f'<!--{comment}--><{name}>{escape(text)}</{name}>' for comment, name, text in elements)


def write(name, elements, count):
    text = ("<?xml version='1.0' encoding='UTF-8'?>\r\n<!--お気に入り-->\r\n<Favorite>" + header(elements) +
            '<!--プリントオプション--><PrintOption>' + options(count) + '</PrintOption></Favorite>\r\n')
    (DATA / name).write_bytes(text.encode('utf-8'))


write('favorite_v2.pfk',
      [('ファイルバージョン', 'FileVer', '2'), ('IOTバージョン', 'IotVer', '10'), ('文字コード', 'CharCode', '0'),
       ('コメント', 'Comment', '凍結した表 <&>'), ('原稿サイズ', 'PageSize', 'A4 (210 x 297 mm)')], None)
write('favorite_old.pfk',
      [('ファイルバージョン', 'FileVer', '1'), ('IOTバージョン', 'IotVer', '10'), ('文字コード', 'CharCode', '0'),
       ('コメント', 'Comment', 'PageSizeのない形式')], ROWS_OF_OLD_FILE)

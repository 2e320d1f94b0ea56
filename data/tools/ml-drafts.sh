#!/usr/bin/env bash
# Drafts the ChineseGB column of both language tables from their ChineseBig5 column with
# OpenCC (Taiwan to mainland usage, phrases included), brings the draft to the glossary's
# terms (data/README.md), and prints every row whose draft differs from the committed
# ChineseGB text, for a person to read:
#
#   TABLE <tab> KEY <tab> draft: TEXT <tab> committed: TEXT
#
# The draft is a suggestion only: the committed text stands wherever a person judged it
# better. Always exits 0, so that it can run beside the build without failing it.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
ml=${1:-$here/../ml}
config=${OPENCC_CONFIG:-tw2sp.json}

if ! command -v opencc >/dev/null 2>&1; then
    echo "ml-drafts: opencc is not installed (Debian package opencc); nothing drafted" >&2
    exit 0
fi

# The glossary's terms where OpenCC keeps Taiwan usage; order matters, longer terms first.
glossary='s/连络人/联系人/g
s/联系人群组/联系人组/g
s/用户群组/联系人组/g
s/群组/联系人组/g
s/警报发起消息/报警短信/g
s/警报复归消息/恢复短信/g
s/警报区域/防区/g
s/警报区/防区/g
s/警报点/防区/g
s/短信警报机/短信报警器/g
s/短信报警机/短信报警器/g
s/报警机/报警器/g
s/通信连接端口/串口/g
s/通信端口/串口/g
s/指拨开关/拨码开关/g
s/同比特检查/奇偶校验/g
s/通信速率/波特率/g
s/设备识别码/从站地址/g
s/其它/其他/g
s/清单/列表/g
s/开新项目/新建项目/g'

# draft TABLE FILE KEYCOLUMNS BIG5COLUMN GBCOLUMN
draft() {
    local table=$1 file=$2 keys=$3 big5=$4 gb=$5
    if [ ! -r "$file" ]; then
        echo "ml-drafts: cannot read $file" >&2
        return
    fi
    # Rows after the header, with a CR of a CR LF file and a byte order mark taken off.
    local body
    body=$(mktemp) || return
    tail -n +2 "$file" | tr -d '\r' | sed '1s/^\xEF\xBB\xBF//' | grep -v '^$' >"$body"
    cut -f"$big5" "$body" | opencc -c "$config" | sed "$glossary" \
        | paste <(cut -f"$keys" "$body" | tr '\t' '/') - <(cut -f"$gb" "$body") \
        | awk -F'\t' -v table="$table" '$2 != $3 {
              printf "%s\t%s\tdraft: %s\tcommitted: %s\n", table, $1, $2, $3; n++ }
              END { printf "%s: %d row(s) differ from the draft\n", table, n + 0 > "/dev/stderr" }'
    rm -f "$body"
}

draft Text "$ml/Text.tsv" 1-3 5 6
draft Form "$ml/Form.tsv" 1-3 4 5
exit 0

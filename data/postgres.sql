-- What the dialect of the program has and PostgreSQL lacks: its text comparison, its types by name and its conversions,
-- with the database's own error texts. All of it lies in a schema of its own beside the office's tables.

CREATE SCHEMA rovanta;
GRANT USAGE ON SCHEMA rovanta TO PUBLIC;

CREATE TABLE rovanta.version (number int NOT NULL);
INSERT INTO rovanta.version VALUES (0);

-- Texts are equal without regard to case by this collation, and without regard to trailing blanks by the type bpchar.
-- Both are the server's own, so indexes, joins and groups follow the rule at full speed.
CREATE COLLATION rovanta.words (provider = icu, locale = 'und-u-ks-level2', deterministic = false);

-- The column types keep the dialect's names, so that the catalogue can be read back. A bit is a number of its own, for
-- it compares and converts like one.
CREATE DOMAIN rovanta.bit AS smallint;
CREATE DOMAIN rovanta.money AS numeric(19, 4) CHECK (abs(VALUE) <= 922337203685477.5807);
CREATE DOMAIN rovanta."varchar(max)" AS bpchar COLLATE rovanta.words;

CREATE FUNCTION rovanta.need_varchar(length int) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
    IF to_regtype(format('rovanta."varchar(%s)"', length)) IS NULL THEN
        EXECUTE format('CREATE DOMAIN rovanta."varchar(%s)" AS bpchar COLLATE rovanta.words', length);
    END IF;
EXCEPTION WHEN duplicate_object OR unique_violation THEN
    -- Another desk was faster.
    NULL;
END $$;

CREATE FUNCTION rovanta.fail(message text) RETURNS void LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN
    RAISE EXCEPTION USING MESSAGE = message, ERRCODE = 'RV001';
END $$;

-- The text with its trailing blanks, which the server's own conversion would cut.
CREATE FUNCTION rovanta.whole_text(value bpchar) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT textin(bpcharout($1))
$$;

CREATE FUNCTION rovanta.joined(a bpchar, b bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT (textin(bpcharout($1)) || textin(bpcharout($2)))::bpchar
$$;

CREATE FUNCTION rovanta.fit_text(value bpchar, length int, place text) RETURNS bpchar
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
    IF char_length(value) > length THEN
        PERFORM rovanta.fail('String or binary data would be truncated in ' || place || '.');
    END IF;
    RETURN left(textin(bpcharout(value)), length)::bpchar;
END $$;

CREATE FUNCTION rovanta.cut_text(value bpchar, length int) RETURNS bpchar
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT left(textin(bpcharout($1)), $2)::bpchar
$$;

-- Out of texts

CREATE FUNCTION rovanta.text_to_whole(value bpchar, type text) RETURNS bigint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    plain text COLLATE "C" := btrim(textin(bpcharout(value)), E' \t\r\n');
    number numeric;
BEGIN
    IF plain = '' THEN
        RETURN 0;
    END IF;
    IF plain !~ '^([+-]?[0-9]+)$' OR length(plain) > 100 THEN
        IF type = 'bigint' THEN
            PERFORM rovanta.fail('Error converting data type varchar to bigint.');
        END IF;
        PERFORM rovanta.fail('Conversion failed when converting the varchar value ''' || textin(bpcharout(value)) ||
                             ''' to data type ' || type || '.');
    END IF;
    number := plain::numeric;
    IF type = 'int' AND number NOT BETWEEN -2147483648 AND 2147483647 THEN
        PERFORM rovanta.fail('Arithmetic overflow error converting expression to data type int.');
    END IF;
    RETURN number::bigint;
END $$;

CREATE FUNCTION rovanta.text_to_bit(value bpchar) RETURNS smallint
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    plain text COLLATE "C" := lower(btrim(textin(bpcharout(value)), E' \t\r\n'));
BEGIN
    IF plain = 'true' THEN
        RETURN 1;
    ELSIF plain = 'false' THEN
        RETURN 0;
    END IF;
    RETURN CASE WHEN rovanta.text_to_whole(value, 'bit') <> 0 THEN 1 ELSE 0 END;
END $$;

CREATE FUNCTION rovanta.text_to_float(value bpchar, type text) RETURNS float8
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    plain text COLLATE "C" := btrim(textin(bpcharout(value)), E' \t\r\n');
BEGIN
    IF plain = '' AND type <> 'numeric' THEN
        RETURN 0;
    END IF;
    IF plain !~ '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?$' THEN
        PERFORM rovanta.fail('Error converting data type varchar to ' || type || '.');
    END IF;
    RETURN plain::float8;
EXCEPTION WHEN numeric_value_out_of_range THEN
    PERFORM rovanta.fail('Error converting data type varchar to ' || type || '.');
END $$;

CREATE FUNCTION rovanta.text_to_money(value bpchar) RETURNS numeric
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    plain text COLLATE "C" := replace(btrim(textin(bpcharout(value)), E' \t\r\n'), ',', '');
BEGIN
    IF plain = '' THEN
        RETURN 0;
    END IF;
    plain := regexp_replace(plain, '^([+-]?)\$', '\1');
    IF plain !~ '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]{1,2})?$' THEN
        PERFORM rovanta.fail('Cannot convert a char value to money. The char value has incorrect syntax.');
    END IF;
    RETURN round(plain::numeric, 4);
END $$;

-- m/d/yyyy, m-d-yyyy, m/d/yy or yyyy-mm-dd, with h:mm, h:mm:ss, AM or PM behind it.
CREATE FUNCTION rovanta.text_to_datetime(value bpchar) RETURNS timestamp(0)
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    plain text COLLATE "C" := btrim(textin(bpcharout(value)), E' \t\r\n');
    day text[];
    clock text[];
    year int;
    hour int := 0;
BEGIN
    IF plain = '' THEN
        RETURN '1900-01-01';
    END IF;
    day := regexp_match(plain, '^([0-9]{4})-([0-9]{1,2})-([0-9]{1,2})(.*)$');
    IF day IS NULL THEN
        day := regexp_match(plain, '^([0-9]{1,2})[/-]([0-9]{1,2})[/-]([0-9]{4}|[0-9]{2})(.*)$');
        day := ARRAY[day[3], day[1], day[2], day[4]];
    END IF;
    year := day[1]::int + CASE WHEN length(day[1]) > 2 THEN 0 WHEN day[1]::int < 30 THEN 2000 ELSE 1900 END;
    IF btrim(day[4]) <> '' THEN
        clock := regexp_match(day[4], '^ +([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))? *([AaPp][Mm])?$');
        hour := clock[1]::int;
        IF clock[4] IS NOT NULL THEN
            IF hour NOT BETWEEN 1 AND 12 THEN
                hour := NULL;
            END IF;
            hour := hour % 12 + CASE WHEN lower(clock[4]) = 'pm' THEN 12 ELSE 0 END;
        END IF;
    END IF;
    IF year IS NULL OR hour IS NULL OR hour > 23 OR year NOT BETWEEN 1753 AND 9999 THEN
        PERFORM rovanta.fail('Conversion failed when converting date and/or time from character string.');
    END IF;
    RETURN make_timestamp(year, day[2]::int, day[3]::int, hour, coalesce(clock[2], '0')::int,
                          coalesce(clock[3], '0')::int);
EXCEPTION WHEN datetime_field_overflow THEN
    PERFORM rovanta.fail('Conversion failed when converting date and/or time from character string.');
END $$;

-- Into texts. A length of 0 stands for any.

CREATE FUNCTION rovanta.shortened(value text, length int) RETURNS bpchar LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $2 = 0 THEN $1 ELSE left($1, $2) END::bpchar
$$;

CREATE FUNCTION rovanta.whole_to_text(value bigint, length int) RETURNS bpchar
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE WHEN $2 > 0 AND length($1::text) > $2 THEN '*' ELSE $1::text END::bpchar
$$;

CREATE FUNCTION rovanta.money_to_text(value numeric, length int) RETURNS bpchar
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT rovanta.shortened(round($1, 2)::text, $2)
$$;

-- Six digits, as the language prints them.
CREATE FUNCTION rovanta.float_to_text(value float8, length int) RETURNS bpchar
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    digits text[] := regexp_match(to_char(abs(value), '9.99999EEEE'), '^ *([0-9.]+)e([+-])([0-9]+)$');
    exponent int := (digits[2] || digits[3])::int;
    plain text COLLATE "C";
BEGIN
    IF value = 0 THEN
        RETURN '0';
    END IF;
    IF exponent < -4 OR exponent >= 6 THEN
        plain := rtrim(rtrim(digits[1], '0'), '.') || 'e' || digits[2] || lpad(abs(exponent)::text, 2, '0');
    ELSE
        plain := round((digits[1] || 'e' || digits[2] || digits[3])::numeric, greatest(5 - exponent, 0))::text;
        IF plain LIKE '%.%' THEN
            plain := rtrim(rtrim(plain, '0'), '.');
        END IF;
    END IF;
    RETURN rovanta.shortened(CASE WHEN value < 0 THEN '-' ELSE '' END || plain, length);
END $$;

CREATE FUNCTION rovanta.datetime_to_text(value timestamp, length int) RETURNS bpchar
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT rovanta.shortened(
        (ARRAY['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'])
            [date_part('month', $1)::int]
        || ' ' || lpad(date_part('day', $1)::text, 2) || ' ' || date_part('year', $1)::text || ' '
        || lpad(((date_part('hour', $1)::int + 11) % 12 + 1)::text, 2) || ':'
        || lpad(date_part('minute', $1)::text, 2, '0') || CASE WHEN date_part('hour', $1) < 12 THEN 'AM' ELSE 'PM' END,
        $2)
$$;

-- Dates

CREATE FUNCTION rovanta.days_to_datetime(days float8) RETURNS timestamp(0)
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
BEGIN
    IF days NOT BETWEEN -53690 AND 2958463 THEN
        PERFORM rovanta.fail('Arithmetic overflow error converting expression to data type datetime.');
    END IF;
    RETURN timestamp '1900-01-01' + round(days::numeric * 86400) * interval '1 second';
END $$;

CREATE FUNCTION rovanta.add_to_date(unit text, number int, date timestamp) RETURNS timestamp(0)
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    moved timestamp;
BEGIN
    IF unit IN ('m', 'yyyy') AND abs(number::bigint) > 120000 THEN
        RAISE datetime_field_overflow;
    END IF;
    moved := date + CASE unit
        WHEN 'd' THEN number::bigint * interval '1 day'
        WHEN 'ww' THEN number::bigint * 7 * interval '1 day'
        WHEN 'm' THEN make_interval(months => number)
        WHEN 'yyyy' THEN make_interval(years => number)
        WHEN 'h' THEN number * interval '1 hour'
        WHEN 'n' THEN number * interval '1 minute'
        ELSE number * interval '1 second'
    END;
    IF date_part('year', moved) NOT BETWEEN 1753 AND 9999 THEN
        RAISE datetime_field_overflow;
    END IF;
    RETURN moved;
EXCEPTION WHEN datetime_field_overflow OR interval_field_overflow THEN
    PERFORM rovanta.fail('Adding a value to a ''datetime'' column caused an overflow.');
END $$;

-- The boundaries between two dates; of weeks the Sundays.
CREATE FUNCTION rovanta.date_difference(unit text, first timestamp, last timestamp) RETURNS bigint
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT CASE $1
        WHEN 'd' THEN ($3::date - $2::date)::bigint
        WHEN 'ww' THEN ((($3::date - date '1899-12-31') - extract(dow FROM $3)::int)
                        - (($2::date - date '1899-12-31') - extract(dow FROM $2)::int))::bigint / 7
        WHEN 'm' THEN ((date_part('year', $3) - date_part('year', $2)) * 12
                       + date_part('month', $3) - date_part('month', $2))::bigint
        WHEN 'yyyy' THEN (date_part('year', $3) - date_part('year', $2))::bigint
        WHEN 'h' THEN (floor(extract(epoch FROM $3) / 3600) - floor(extract(epoch FROM $2) / 3600))::bigint
        WHEN 'n' THEN (floor(extract(epoch FROM $3) / 60) - floor(extract(epoch FROM $2) / 60))::bigint
        ELSE (floor(extract(epoch FROM $3)) - floor(extract(epoch FROM $2)))::bigint
    END
$$;

CREATE FUNCTION rovanta.remainder(a float8, b float8) RETURNS float8 LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT ($1::numeric % $2::numeric)::float8
$$;

-- LIKE

-- The inside of a set as an item of a regular expression. A range that runs backwards holds nothing.
CREATE FUNCTION rovanta.like_set(excluded boolean, inside text) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    place int := 1;
    first text COLLATE "C";
    last text COLLATE "C";
    items text := '';
BEGIN
    WHILE place <= length(inside) LOOP
        first := substr(inside, place, 1);
        last := first;
        IF substr(inside, place + 1, 1) = '-' AND place + 2 <= length(inside) THEN
            last := substr(inside, place + 2, 1);
            place := place + 2;
        END IF;
        place := place + 1;
        IF first <= last THEN
            items := items || regexp_replace(first, '([][\\^-])', '\\\1') || '-' || regexp_replace(last, '([][\\^-])', '\\\1');
        END IF;
    END LOOP;
    IF items = '' THEN
        RETURN CASE WHEN excluded THEN '.' ELSE '(?!)' END;
    END IF;
    RETURN '[' || CASE WHEN excluded THEN '^' ELSE '' END || items || ']';
END $$;

-- A pattern of the dialect as a regular expression over lower case letters: % for any run, _ for one character, [a-c]
-- and [^a-c] for one of a set. A set without an end matches nothing.
CREATE FUNCTION rovanta.like_pattern(value bpchar) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT PARALLEL SAFE AS $$
DECLARE
    pattern text COLLATE "C" := lower(textin(bpcharout(value)) COLLATE "und-x-icu");
    result text COLLATE "C" := '';
    piece text[];
BEGIN
    IF position('[' IN pattern) = 0 THEN
        result := regexp_replace(pattern, '([][\\.^$*+?(){}|])', '\\\1', 'g');
        RETURN '^' || replace(replace(result, '%', '.*'), '_', '.') || ' *$';
    END IF;
    WHILE pattern <> '' LOOP
        piece := regexp_match(pattern, '^([^[]*)(.*)$');
        result := result || replace(replace(
            regexp_replace(piece[1], '([][\\.^$*+?(){}|])', '\\\1', 'g'), '%', '.*'), '_', '.');
        pattern := piece[2];
        EXIT WHEN pattern = '';
        piece := regexp_match(pattern, '^\[(\^?)(.[^]]*)\](.*)$');
        IF piece IS NULL THEN
            RETURN '(?!)';
        END IF;
        result := result || rovanta.like_set(piece[1] = '^', piece[2]);
        pattern := piece[3];
    END LOOP;
    RETURN '^' || result || ' *$';
END $$;

CREATE FUNCTION rovanta.is_like(value bpchar, pattern text) RETURNS boolean
LANGUAGE sql IMMUTABLE PARALLEL SAFE AS $$
    SELECT lower(textin(bpcharout($1)) COLLATE "und-x-icu") COLLATE "C" ~ $2
$$;

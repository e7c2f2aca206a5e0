#include "refhost/store/Schema.h"

#include <array>
#include <string>

#include "refhost/store/Statement.h"

namespace norvex {

namespace {

/// "NVKB", written into the file's header so that no other program's file is taken for a knowledge base.
constexpr std::int64_t kMark = 0x4E564B42;

/// Texts and units may be null: other tools write to these files too, and what they leave out reads as "".
/// Rows of processes, steps and feature cases are never numbered twice, because lists that are on a screen
/// come back to their rows by number after others have deleted and added some.
constexpr const char* kVersion1 = R"sql(
CREATE TABLE process (
    row INTEGER PRIMARY KEY AUTOINCREMENT,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT,
    unit INTEGER,
    rule TEXT,
    description TEXT,
    protected INTEGER NOT NULL DEFAULT 0,
    attachments INTEGER NOT NULL DEFAULT 0
);
-- The order of the list, complete with what a refresh needs of every row.
CREATE INDEX process_by_name ON process (name COLLATE NOCASE, id);
-- Orphans are few; finding them costs only them.
CREATE INDEX process_orphan ON process (id, attachments) WHERE attachments = 0;

-- Counting a million rows takes as long as reading them.
CREATE TABLE tally (name TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO tally VALUES ('process', 0);
CREATE TRIGGER process_added AFTER INSERT ON process BEGIN
    UPDATE tally SET value = value + 1 WHERE name = 'process';
END;
CREATE TRIGGER process_removed AFTER DELETE ON process BEGIN
    UPDATE tally SET value = value - 1 WHERE name = 'process';
END;

CREATE TABLE material_class (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT
);
CREATE TABLE material (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT,
    material_class INTEGER REFERENCES material_class (row)
);
CREATE TABLE process_material (
    process INTEGER NOT NULL REFERENCES process (row) ON DELETE CASCADE,
    material INTEGER NOT NULL REFERENCES material (row) ON DELETE CASCADE,
    PRIMARY KEY (process, material)
) WITHOUT ROWID;
CREATE INDEX process_material_by_material ON process_material (material);

CREATE TABLE nvx_feature_type (id INTEGER PRIMARY KEY, name TEXT);
CREATE TABLE part_type (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT
);
-- Without a part type or a unit a feature type fits every one.
CREATE TABLE feature_type (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT,
    nvx_feature_type INTEGER,
    part_type INTEGER REFERENCES part_type (row),
    unit INTEGER
);
CREATE TABLE feature_key (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT,
    feature_type INTEGER NOT NULL REFERENCES feature_type (row) ON DELETE CASCADE
);
CREATE INDEX feature_key_by_type ON feature_key (feature_type);
CREATE TABLE feature_value (
    row INTEGER PRIMARY KEY,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    name TEXT,
    feature_key INTEGER NOT NULL REFERENCES feature_key (row) ON DELETE CASCADE
);
CREATE INDEX feature_value_by_key ON feature_value (feature_key);

CREATE TABLE feature_case (
    row INTEGER PRIMARY KEY AUTOINCREMENT,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    feature_type INTEGER NOT NULL REFERENCES feature_type (row),
    nvx_feature_type INTEGER,
    part_type INTEGER REFERENCES part_type (row),
    unit INTEGER,
    material_class INTEGER REFERENCES material_class (row),
    process_unit INTEGER
);
CREATE INDEX feature_case_by_type ON feature_case (feature_type);
CREATE TABLE feature_case_value (
    feature_case INTEGER NOT NULL REFERENCES feature_case (row) ON DELETE CASCADE,
    value INTEGER NOT NULL REFERENCES feature_value (row) ON DELETE CASCADE,
    PRIMARY KEY (feature_case, value)
) WITHOUT ROWID;
CREATE INDEX feature_case_value_by_value ON feature_case_value (value);

CREATE TABLE attachment (
    feature_case INTEGER NOT NULL REFERENCES feature_case (row) ON DELETE CASCADE,
    process INTEGER NOT NULL REFERENCES process (row) ON DELETE CASCADE,
    PRIMARY KEY (feature_case, process)
) WITHOUT ROWID;
CREATE INDEX attachment_by_process ON attachment (process);
CREATE TRIGGER attachment_added AFTER INSERT ON attachment BEGIN
    UPDATE process SET attachments = attachments + 1 WHERE row = new.process;
END;
CREATE TRIGGER attachment_removed AFTER DELETE ON attachment BEGIN
    UPDATE process SET attachments = attachments - 1 WHERE row = old.process;
END;

CREATE TABLE cutting_cycle (id INTEGER PRIMARY KEY, name TEXT, type INTEGER NOT NULL);
CREATE INDEX cutting_cycle_by_type ON cutting_cycle (type);
CREATE TABLE process_step (
    row INTEGER PRIMARY KEY AUTOINCREMENT,
    id BLOB NOT NULL UNIQUE CHECK (length(id) = 16),
    process INTEGER NOT NULL REFERENCES process (row) ON DELETE CASCADE,
    priority INTEGER,
    name TEXT,
    cutting_cycle INTEGER
);
CREATE INDEX process_step_by_process ON process_step (process, priority);
CREATE TABLE step_value (
    step INTEGER NOT NULL REFERENCES process_step (row) ON DELETE CASCADE,
    code INTEGER NOT NULL,
    value TEXT,
    PRIMARY KEY (step, code)
) WITHOUT ROWID;

CREATE TABLE user_account (
    name TEXT PRIMARY KEY COLLATE NOCASE,
    may_edit INTEGER NOT NULL,
    may_add INTEGER NOT NULL,
    may_delete INTEGER NOT NULL
) WITHOUT ROWID;
)sql";

constexpr const char* kVersion2 = R"sql(
-- Where the technology of the step comes from (pellmark::TechnologySource); null for what earlier versions and
-- other tools have stored.
ALTER TABLE process_step ADD COLUMN source INTEGER;

-- Starting values for speeds and feeds, metric. The feed is per tooth or per revolution, as the work has it.
CREATE TABLE cutting_data (
    row INTEGER PRIMARY KEY,
    material_class TEXT NOT NULL,
    material TEXT NOT NULL,
    work TEXT NOT NULL,
    speed REAL NOT NULL,
    feed REAL NOT NULL,
    feed_of_diameter INTEGER NOT NULL,
    UNIQUE (material_class, work)
);
)sql";

constexpr const char* kVersion3 = R"sql(
-- What a person may look for. Two marks behind each text make every one and every two letters of it the beginning
-- of some trigram, so that the index finds what is too short for it as well.
CREATE VIEW process_text AS
    SELECT row, coalesce(name, '') || char(1, 1) AS name, coalesce(rule, '') || char(1, 1) AS rule,
           coalesce(description, '') || char(1, 1) AS description
    FROM process;
CREATE VIRTUAL TABLE process_search USING fts5(
    name, rule, description, content = 'process_text', content_rowid = 'row', tokenize = 'trigram', columnsize = 0);
CREATE VIRTUAL TABLE process_gram USING fts5vocab(process_search, row);
INSERT INTO process_search (process_search) VALUES ('rebuild');
CREATE TRIGGER process_searched_added AFTER INSERT ON process BEGIN
    INSERT INTO process_search (rowid, name, rule, description)
    VALUES (new.row, coalesce(new.name, '') || char(1, 1), coalesce(new.rule, '') || char(1, 1),
            coalesce(new.description, '') || char(1, 1));
END;
CREATE TRIGGER process_searched_removed AFTER DELETE ON process BEGIN
    INSERT INTO process_search (process_search, rowid, name, rule, description)
    VALUES ('delete', old.row, coalesce(old.name, '') || char(1, 1), coalesce(old.rule, '') || char(1, 1),
            coalesce(old.description, '') || char(1, 1));
END;
CREATE TRIGGER process_searched_changed AFTER UPDATE OF name, rule, description ON process BEGIN
    INSERT INTO process_search (process_search, rowid, name, rule, description)
    VALUES ('delete', old.row, coalesce(old.name, '') || char(1, 1), coalesce(old.rule, '') || char(1, 1),
            coalesce(old.description, '') || char(1, 1));
    INSERT INTO process_search (rowid, name, rule, description)
    VALUES (new.row, coalesce(new.name, '') || char(1, 1), coalesce(new.rule, '') || char(1, 1),
            coalesce(new.description, '') || char(1, 1));
END;

-- The natural order of the texts, as keys that compare byte by byte. Only this program can compute them: what
-- others write is marked here by a null, and made up for when somebody sorts.
CREATE TABLE process_key (process INTEGER PRIMARY KEY, name BLOB, rule BLOB, description BLOB);
INSERT INTO process_key (process) SELECT row FROM process;
CREATE INDEX process_key_missing ON process_key (process) WHERE name IS NULL;
CREATE INDEX process_key_by_name ON process_key (name);
CREATE INDEX process_key_by_rule ON process_key (rule);
CREATE INDEX process_key_by_description ON process_key (description);
CREATE INDEX process_by_unit ON process (unit, name COLLATE NOCASE, id);

-- How often the list has changed: an order that was read before is still the order.
INSERT INTO tally VALUES ('process change', 0);
CREATE TRIGGER process_keyed_added AFTER INSERT ON process BEGIN
    INSERT INTO process_key (process) VALUES (new.row);
    UPDATE tally SET value = value + 1 WHERE name = 'process change';
END;
CREATE TRIGGER process_keyed_removed AFTER DELETE ON process BEGIN
    DELETE FROM process_key WHERE process = old.row;
    UPDATE tally SET value = value + 1 WHERE name = 'process change';
END;
CREATE TRIGGER process_keyed_changed AFTER UPDATE OF name, unit, rule, description ON process BEGIN
    UPDATE process_key SET name = NULL, rule = NULL, description = NULL WHERE process = new.row;
    UPDATE tally SET value = value + 1 WHERE name = 'process change';
END;
)sql";

constexpr std::array kMigrations{
    Migration{1, kVersion1},
    Migration{2, kVersion2},
    Migration{3, kVersion3},
};

std::int64_t pragma(Connection& connection, const char* sql) {
    Statement statement(connection, sql);
    return statement.step() ? statement.integer(0) : 0;
}

}  // namespace

std::span<const Migration> migrations() {
    return kMigrations;
}

int currentSchemaVersion() {
    return kMigrations.back().version;
}

int schemaVersion(Connection& connection) {
    return static_cast<int>(pragma(connection, "PRAGMA user_version"));
}

bool hasKnowledgeBaseMark(Connection& connection) {
    return pragma(connection, "PRAGMA application_id") == kMark;
}

void migrate(Connection& connection, std::span<const Migration> list) {
    const int from = schemaVersion(connection);
    for (const Migration& migration : list) {
        if (migration.version <= from) continue;
        connection.execute(migration.sql);
        connection.execute(("PRAGMA user_version = " + std::to_string(migration.version)).c_str());
    }
    connection.execute(("PRAGMA application_id = " + std::to_string(kMark)).c_str());
}

}  // namespace norvex

<?php

// The shop's data: an SQLite file in the system's temporary folder, filled from catalogue.json on first use.
declare(strict_types=1);

const CATALOGUE = __DIR__ . '/catalogue.json';

function open_store(): PDO
{
    $store = new PDO('sqlite:' . sys_get_temp_dir() . '/zorvel-shop-' . hash_file('crc32b', CATALOGUE) . '.sqlite');
    $store->setAttribute(PDO::ATTR_DEFAULT_FETCH_MODE, PDO::FETCH_ASSOC);
    if (!filled($store)) {
        $store->exec('BEGIN IMMEDIATE'); // of several first visitors one fills it, and the others wait here
        filled($store) || fill($store, json_decode(file_get_contents(CATALOGUE), true, flags: JSON_THROW_ON_ERROR));
        $store->exec('COMMIT');
    }
    return $store;
}

function filled(PDO $store): bool
{
    return $store->query('PRAGMA user_version')->fetchColumn() !== 0;
}

function fill(PDO $store, array $catalogue): void
{
    $store->exec(file_get_contents(__DIR__ . '/schema.sql'));
    ['shop' => $shop, 'news' => $news, 'categories' => $categories] = $catalogue;
    insert($store, 'shop', ['name' => $shop['name'], 'claim' => $shop['claim']]);
    foreach ($shop['hours'] as $day => $opening) {
        insert($store, 'hours', ['day' => $day, 'opening' => $opening]);
    }
    foreach ($news as $item) {
        insert($store, 'news', $item);
    }
    foreach ($categories as $category) {
        fill_category($store, $category);
    }
}

function fill_category(PDO $store, array $category): void
{
    insert($store, 'category', array_diff_key($category, ['products' => true]));
    foreach ($category['products'] as $product) {
        insert($store, 'product', $product + ['category' => $category['key']]);
    }
}

function insert(PDO $store, string $table, array $row): void
{
    $columns = implode(', ', array_keys($row));
    $marks = implode(', ', array_fill(0, count($row), '?'));
    $store->prepare("INSERT INTO $table ($columns) VALUES ($marks)")->execute(array_values($row));
}

function rows(PDO $store, string $query, string ...$values): array
{
    $statement = $store->prepare($query);
    $statement->execute($values);
    return $statement->fetchAll();
}

/** The products for which CONDITION holds, each with its price as text: a template does not reckon. */
function products(PDO $store, string $condition, string ...$values): array
{
    return array_map(
        fn(array $product): array => $product + ['price' => number_format($product['cents'] / 100, 2)],
        rows($store, "SELECT * FROM product WHERE $condition", ...$values),
    );
}

function shop(PDO $store): array
{
    $hours = array_column(rows($store, 'SELECT day, opening FROM hours'), 'opening', 'day');
    return rows($store, 'SELECT name, claim FROM shop')[0] + ['hours' => $hours];
}

/** The categories that have a product whose name holds QUERY, each with these products. */
function categories(PDO $store, string $query): array
{
    $search = 'category = ? AND instr(lower(name), lower(?))';
    $filled = array_map(
        fn(array $category): array => $category + ['products' => products($store, $search, $category['key'], $query)],
        rows($store, 'SELECT * FROM category'),
    );
    return array_values(array_filter($filled, fn(array $category): bool => $category['products'] !== []));
}

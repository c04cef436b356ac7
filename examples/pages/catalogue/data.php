<?php

// The second page of the garden tools, as a shop reads it from its database: with numbers, null, and a reference that
// foreach leaves behind.

declare(strict_types=1);

$shop = new PDO('sqlite::memory:');
$shop->exec(<<<'SQL'
    CREATE TABLE category (id INTEGER, name TEXT);
    INSERT INTO category VALUES (1, 'Seeds'), (2, 'Tools & care'), (3, 'Pots');
    CREATE TABLE product (id INTEGER, category INTEGER, title TEXT, cents INTEGER, kilos REAL, stock INTEGER, note TEXT, labels TEXT);
    INSERT INTO product VALUES
        (11, 2, 'Rake', 2450, 1.5, 4, NULL, NULL),
        (12, 2, 'Spade', 3900, 2.0, 2, NULL, 'steel,ash'),
        (13, 2, 'Trowel', 890, 0.25, 9, NULL, NULL),
        (14, 2, 'Shears 8"', 1995, 0.4, 0, 'Back in <spring>', 'steel'),
        (15, 2, 'Hoe', 2100, 1.0, 12, NULL, 'steel,ash,new'),
        (16, 2, 'Gloves', 1250, 0.1, 30, '', NULL),
        (17, 2, 'Watering can', 1700, 0.9, 5, NULL, NULL);
    SQL);

$category = 2;
$page = 2;
$perPage = 3;

$categories = $shop->query('SELECT id, name FROM category')->fetchAll(PDO::FETCH_ASSOC);
foreach ($categories as &$each) {
    $each['active'] = $each['id'] === $category;
}

$count = $shop->query("SELECT COUNT(*) FROM product WHERE category = $category")->fetchColumn();
$last = (int) ceil($count / $perPage);
$products = $shop
    ->query("SELECT * FROM product WHERE category = $category ORDER BY id LIMIT $perPage OFFSET " . ($page - 1) * $perPage)
    ->fetchAll(PDO::FETCH_ASSOC);
foreach ($products as &$product) {
    $product['price'] = number_format($product['cents'] / 100, 2);
    $product['labels'] = array_filter(explode(',', (string) $product['labels']));
    sort($product['labels']);
}

return [
    'title' => $categories[1]['name'],
    'categories' => $categories,
    'products' => $products,
    'count' => $count,
    'category' => $category,
    'previous' => $page > 1 ? $page - 1 : null,
    'next' => $page < $last ? $page + 1 : null,
    'pages' => array_map(fn(int $number): array => ['number' => $number, 'current' => $number === $page], range(1, $last)),
];

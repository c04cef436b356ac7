<?php

// The shop's one entry: finds the data of the page asked for and fills its template. Files beside it are the server's.
declare(strict_types=1);

use Zorvel\TemplateError;
use Zorvel\View;

$composer = dirname(__DIR__) . '/vendor/autoload.php'; // where the shop stands by itself
require is_file($composer) ? $composer : dirname(__DIR__, 2) . '/autoload.php';
require dirname(__DIR__) . '/store.php';

$store = open_store();
$view = new View(dirname(__DIR__) . '/templates');
$view->share(['shop' => shop($store)]);
[$template, $data] = match (parse_url($_SERVER['REQUEST_URI'], PHP_URL_PATH)) {
    '/' => catalogue($store),
    '/product' => product($store),
    '/guestbook' => guestbook($store),
    default => missing(),
};
try {
    echo $view->render($template, $data);
} catch (TemplateError $error) {
    error_log($error->getMessage());
    http_response_code(500);
    echo 'This page is out of order.';
}

function catalogue(PDO $store): array
{
    $query = trim((string) filter_input(INPUT_GET, 'query'));
    return ['catalogue.tpl', [
        'query' => $query,
        'searched' => $query !== '',
        'categories' => categories($store, $query),
        'news' => rows($store, 'SELECT * FROM news'),
    ]];
}

function product(PDO $store): array
{
    $found = products($store, 'key = ?', (string) filter_input(INPUT_GET, 'item'));
    if ($found === []) {
        return missing();
    }
    $category = rows($store, 'SELECT * FROM category WHERE key = ?', $found[0]['category'])[0];
    return ['product.tpl', ['title' => $found[0]['name'], 'product' => $found[0], 'category' => $category]];
}

function guestbook(PDO $store): array
{
    $name = trim((string) filter_input(INPUT_POST, 'name'));
    $words = trim((string) filter_input(INPUT_POST, 'words'));
    $posted = $_SERVER['REQUEST_METHOD'] === 'POST';
    if ($posted && $name !== '' && $words !== '') {
        insert($store, 'entry', ['name' => $name, 'words' => $words, 'written' => date('j F Y')]);
        header('Location: guestbook', response_code: 303);
        exit;
    }
    return ['guestbook.tpl', [
        'title' => 'Guest book',
        'incomplete' => $posted,
        'name' => $name,
        'words' => $words,
        'entries' => rows($store, 'SELECT * FROM entry'),
    ]];
}

function missing(): array
{
    http_response_code(404);
    return ['missing.tpl', ['title' => 'Not here']];
}

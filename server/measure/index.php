<?php

// The shop's catalogue or a table of 100 rows, made by one of the engines: ?page=catalogue|rows&engine=NAME. Without an
// engine: the names of those that are there. Those of Composer are set up as their documents say for production.
declare(strict_types=1);

use Latte\Engine;
use Twig\Environment;
use Twig\Loader\FilesystemLoader;

const ROOT = __DIR__ . '/../..';

function composer(string $class): bool
{
    $autoload = ROOT . '/bench/vendor/autoload.php';
    return is_file($autoload) && (require_once $autoload) && class_exists($class);
}

$engines = [
    'zorvel' => function (string $page, array $data): string {
        set_include_path(ROOT . '/examples/shop/templates:' . ROOT . '/server/templates');
        return zorvel("$page.tpl", $data);
    },
    'php' => function (string $page, array $data): string {
        extract($data);
        ob_start();
        require __DIR__ . "/php/$page.php";
        return ob_get_clean();
    },
    'twig' => function (string $page, array $data): string {
        composer(Environment::class);
        $options = ['cache' => sys_get_temp_dir() . '/twig', 'auto_reload' => false];
        return (new Environment(new FilesystemLoader(__DIR__ . '/twig'), $options))->render("$page.html.twig", $data);
    },
    'latte' => function (string $page, array $data): string {
        composer(Engine::class);
        $latte = new Engine();
        $latte->setTempDirectory(sys_get_temp_dir() . '/latte');
        $latte->setAutoRefresh(false);
        return $latte->renderToString(__DIR__ . "/latte/$page.latte", $data);
    },
    'no page' => fn(string $page, array $data): string => (string) count($data),
];

function catalogue(): array
{
    require ROOT . '/examples/shop/store.php';
    $store = open_store();
    return without_null([
        'query' => '', 'searched' => false, 'categories' => categories($store, ''),
        'news' => rows($store, 'SELECT * FROM news'), 'shop' => shop($store),
    ]);
}

/** To the bare function null counts as found. */
function without_null(array $data): array
{
    $known = array_filter($data, fn($value): bool => $value !== null);
    return array_map(fn($value) => is_array($value) ? without_null($value) : $value, $known);
}

function table(): array
{
    require ROOT . '/server/pages/values.php';
    return rows(100, 'a token');
}

if (!isset($_GET['engine'])) {
    $missing = ['twig' => !composer(Environment::class), 'latte' => !composer(Engine::class)];
    exit(json_encode(array_keys(array_diff_key($engines, array_filter($missing))), JSON_THROW_ON_ERROR));
}
echo $engines[$_GET['engine']]($_GET['page'], $_GET['page'] === 'rows' ? table() : catalogue());

<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use Composer\InstalledVersions;

/**
 * What can be measured: the engines, as a floor PHP reading the file or escaping the values, alone, and what the view
 * does with the data before it renders them.
 */
final class Engines
{
    private const array CLASSES = [
        'zorvel' => Engine\Zorvel::class,
        'zorvel-string' => Engine\ZorvelString::class,
        'zorvel-bundle' => Engine\ZorvelBundle::class,
        'zorvel-view' => Engine\ZorvelView::class,
        'php' => Engine\PlainPhp::class,
        'twig' => Engine\Twig::class,
        'latte' => Engine\Latte::class,
        'smarty' => Engine\Smarty::class,
        'mustache' => Engine\Mustache::class,
        'plates' => Engine\Plates::class,
    ];

    public const array LABELS = [
        'zorvel' => 'zorvel',
        'zorvel-string' => 'zorvel, string',
        'zorvel-bundle' => 'zorvel, bundle',
        'zorvel-view' => 'view, bundle',
        'php' => 'PHP',
        'twig' => 'Twig',
        'latte' => 'Latte',
        'smarty' => 'Smarty',
        'mustache' => 'Mustache',
        'plates' => 'Plates',
        'file' => 'read file',
        'escape' => 'escape only',
        'data' => "view's data",
    ];

    /** How zorvel can be given a template. */
    public const array WAYS = ['zorvel', 'zorvel-string', 'zorvel-bundle', 'zorvel-view'];

    /** The engines that have a language of their own; the templates of Plates are PHP. */
    public const array LANGUAGES = ['twig', 'latte', 'smarty', 'mustache'];

    /** The engines that are neither zorvel nor hand-written PHP. */
    public const array OTHERS = [...self::LANGUAGES, 'plates'];

    /** @return array<string, class-string<Engine>> */
    public static function installed(): array
    {
        return array_filter(self::CLASSES, self::isInstalled(...));
    }

    /** @return list<string> labels with versions */
    public static function versions(): array
    {
        return array_values(array_filter(array_map(self::version(...), array_keys(self::installed()))));
    }

    /** @return list<string> labels with package names */
    public static function missing(): array
    {
        $missing = array_diff_key(self::CLASSES, self::installed());

        return array_map(
            static fn(string $id): string => self::LABELS[$id] . ' (' . $missing[$id]::PACKAGE . ')',
            array_keys($missing),
        );
    }

    public static function label(string $case): string
    {
        return self::LABELS[$case];
    }

    public static function open(string $id): Engine
    {
        return new (self::CLASSES[$id])(Templates::folder($id), Templates::compiled($id));
    }

    /** @return ?string the label with the version, null for what is no package */
    private static function version(string $id): ?string
    {
        $package = self::CLASSES[$id]::PACKAGE;

        return $package === null
            ? null
            : self::LABELS[$id] . ' ' . ltrim((string) InstalledVersions::getPrettyVersion($package), 'v');
    }

    /** @param class-string<Engine> $class */
    private static function isInstalled(string $class): bool
    {
        return $class::PACKAGE === null
            || class_exists(InstalledVersions::class) && InstalledVersions::isInstalled($class::PACKAGE);
    }
}
